import com.sun.jna.Library;
import com.sun.jna.Native;
import com.sun.jna.Pointer;
import com.sun.jna.Structure;
import com.sun.jna.Structure.FieldOrder;
import com.sun.jna.ptr.PointerByReference;
import java.util.Locale;

public class Divide {
    @FieldOrder({"structSize", "cut", "index", "ring", "bearingGon", "aX", "aY", "bX", "bY", "along", "measured",
                 "pieces", "alternative", "rounded", "decimals", "roundingTolerance", "askLibrary", "reserved"})
    public static class Request extends Structure {
        public int structSize = size(), cut;
        public long index, ring;
        public double bearingGon, aX, aY, bX, bY, along;
        public int measured, pieces;
        public long alternative;
        public int rounded, decimals;
        public double roundingTolerance;
        public int askLibrary, reserved;
    }

    @FieldOrder({"structSize", "given", "first", "second"})
    public static class Amount extends Structure {
        public int structSize, given;
        public double first, second;
    }

    public interface Plcalc extends Library {
        int plc_parcel_make(double[] xy, long count, PointerByReference parcel);
        int plc_divide(Pointer parcel, Request request, Pointer amounts, long count, PointerByReference division);
        int plc_division_segment(Pointer division, long line, long segment, double[] xyxy);
        String plc_division_text(Pointer division);
        void plc_division_free(Pointer division);
        void plc_parcel_free(Pointer parcel);
    }

    public static void main(String[] arguments) {
        Plcalc plcalc = Native.load("plcalc_c", Plcalc.class);
        double[] yard = {0, 0, 60, 0, 60, 20, 40, 20, 40, 50, 0, 50};
        Request request = new Request();
        request.cut = 1; // perpendicular to the side of index 0
        Amount[] thirds = (Amount[]) new Amount().toArray(2);
        for (Amount third : thirds) {
            third.structSize = third.size();
            third.given = 2;
            third.first = 1;
            third.second = 3;
            third.write();
        }
        PointerByReference parcel = new PointerByReference();
        PointerByReference division = new PointerByReference();
        int code = plcalc.plc_parcel_make(yard, yard.length / 2, parcel);
        if (code == 0)
            code = plcalc.plc_divide(parcel.getValue(), request, thirds[0].getPointer(), thirds.length, division);
        if (code <= 1) {
            double[] line = new double[4];
            for (long i = 0; plcalc.plc_division_segment(division.getValue(), i, 0, line) == 0; ++i)
                System.out.printf(Locale.ROOT, "from %.4f %.4f to %.4f %.4f%n", line[0], line[1], line[2], line[3]);
            System.out.println(plcalc.plc_division_text(division.getValue()));
        }
        plcalc.plc_division_free(division.getValue());
        plcalc.plc_parcel_free(parcel.getValue());
        System.exit(code);
    }
}
