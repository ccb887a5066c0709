// Answers REQUESTS: the answers to requests.txt, through JNA. The library is found by jna.library.path.

import com.sun.jna.Library;
import com.sun.jna.Native;
import com.sun.jna.Pointer;
import com.sun.jna.Structure;
import com.sun.jna.Structure.FieldOrder;
import com.sun.jna.ptr.DoubleByReference;
import com.sun.jna.ptr.LongByReference;
import com.sun.jna.ptr.PointerByReference;
import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Paths;
import java.util.ArrayDeque;
import java.util.Arrays;
import java.util.Queue;

public class Answers {
    static final int OK = 0;
    static final int NO_ANSWER = 1;

    @FieldOrder({"structSize", "cut", "index", "ring", "bearingGon", "aX", "aY", "bX", "bY", "along", "measured",
                 "pieces", "alternative", "rounded", "decimals", "roundingTolerance", "askLibrary", "reserved"})
    public static class Request extends Structure {
        public int structSize, cut;
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

    @FieldOrder({"structSize", "status", "atAmount", "boundary", "decimals", "area", "lines", "pieces", "held", "bare",
                 "trials"})
    public static class DivisionInfo extends Structure {
        public int structSize = size(), status;
        public long atAmount;
        public int boundary, decimals;
        public double area;
        public long lines, pieces, held, bare, trials;
    }

    @FieldOrder({"structSize", "libraryAgrees", "fromX", "fromY", "toX", "toY", "segments", "meetsAgain", "reserved"})
    public static class LineInfo extends Structure {
        public int structSize = size(), libraryAgrees;
        public double fromX, fromY, toX, toY;
        public long segments;
        public int meetsAgain, reserved;
    }

    @FieldOrder({"structSize", "reserved", "amount", "vertices", "holes", "area", "asked", "residual"})
    public static class PieceInfo extends Structure {
        public int structSize = size(), reserved;
        public long amount, vertices, holes;
        public double area, asked, residual;
    }

    @FieldOrder({"structSize", "reserved", "pieces", "asked", "area", "residual"})
    public static class HeldInfo extends Structure {
        public int structSize = size(), reserved;
        public long pieces;
        public double asked, area, residual;
    }

    public interface Plcalc extends Library {
        int plc_parcel_make(double[] xy, long count, PointerByReference parcel);
        int plc_parcel_add_hole(Pointer parcel, double[] xy, long count);
        void plc_parcel_free(Pointer parcel);
        int plc_divide(Pointer parcel, Request request, Pointer amounts, long count, PointerByReference division);
        void plc_division_free(Pointer division);
        String plc_division_text(Pointer division);
        int plc_division_get(Pointer division, DivisionInfo info);
        int plc_division_line(Pointer division, long line, LineInfo info);
        int plc_division_segment(Pointer division, long line, long segment, double[] xyxy);
        int plc_division_piece(Pointer division, long piece, PieceInfo info);
        int plc_division_ring(Pointer division, long piece, long ring, double[] xy, long room, LongByReference count);
        int plc_division_held(Pointer division, long amount, HeldInfo info);
        int plc_division_bare(Pointer division, long cut, double[] xyxy);
        int plc_signed_area(double[] xy, long count, DoubleByReference area);
        int plc_fraz_area(double[] xy, long count, double x1, double y1, double x2, double y2, int cut, int areaKind,
                          double value1, double value2, double[] xyxy);
        int plc_meet_segments(double[] segment1, double[] segment2, double[] xy);
        int plc_polar_point(double stationX, double stationY, double refX, double refY, double angle, double distance,
                            double[] xy);
        int plc_offsets_of(double aX, double aY, double bX, double bY, double x, double y, double[] footXy,
                           DoubleByReference abscissa, DoubleByReference ordinate);
    }

    static final Plcalc plcalc = Native.load("plcalc_c", Plcalc.class);

    final Queue<String> words;
    final StringBuilder said = new StringBuilder();

    Answers(String line) {
        words = new ArrayDeque<>(Arrays.asList(line.split(" ")));
    }

    int i() {
        return Integer.parseInt(words.remove());
    }

    double d() {
        return Double.parseDouble(words.remove());
    }

    double[] d(int count) {
        double[] numbers = new double[count];
        for (int i = 0; i < count; ++i)
            numbers[i] = d();
        return numbers;
    }

    double[] ring() {
        return d(2 * i());
    }

    void say(long number) {
        said.append(' ').append(number);
    }

    void say(double... numbers) {
        for (double number : numbers)
            said.append(String.format(" %016x", Double.doubleToRawLongBits(number)));
    }

    static void must(int code) {
        if (code != OK)
            throw new IllegalStateException("code " + code);
    }

    void sayRing(Pointer division, long piece, long ring) {
        LongByReference count = new LongByReference();
        must(plcalc.plc_division_ring(division, piece, ring, null, 0, count));
        double[] xy = new double[2 * (int) count.getValue()];
        must(plcalc.plc_division_ring(division, piece, ring, xy, count.getValue(), count));
        say(count.getValue());
        say(xy);
    }

    void sayDivision(Pointer division) {
        said.append(" '").append(plcalc.plc_division_text(division)).append("'");
        DivisionInfo info = new DivisionInfo();
        must(plcalc.plc_division_get(division, info));
        say(info.atAmount);
        say((long) info.decimals);
        say(info.area);
        say(info.trials);
        double[] xyxy = new double[4];
        for (long i = 0; i < info.lines; ++i) {
            LineInfo line = new LineInfo();
            must(plcalc.plc_division_line(division, i, line));
            say(line.fromX, line.fromY, line.toX, line.toY);
            say((long) line.meetsAgain);
            say((long) line.libraryAgrees);
            say(line.segments);
            for (long k = 0; k < line.segments; ++k) {
                must(plcalc.plc_division_segment(division, i, k, xyxy));
                say(xyxy);
            }
        }
        for (long i = 0; i < info.pieces; ++i) {
            PieceInfo piece = new PieceInfo();
            must(plcalc.plc_division_piece(division, i, piece));
            say(piece.amount);
            say(piece.area, piece.asked, piece.residual);
            sayRing(division, i, 0);
            say(piece.holes);
            for (long k = 0; k < piece.holes; ++k)
                sayRing(division, i, k + 1);
        }
        for (long i = 0; i < info.held; ++i) {
            HeldInfo held = new HeldInfo();
            must(plcalc.plc_division_held(division, i, held));
            say(held.pieces);
            say(held.asked, held.area, held.residual);
        }
        for (long i = 0; i < info.bare; ++i) {
            say((long) (plcalc.plc_division_bare(division, i, xyxy) == OK ? 1 : 0));
            say(xyxy);
        }
    }

    void divide() {
        Request request = new Request();
        request.structSize = request.size();
        request.cut = i();
        request.index = i();
        request.ring = i();
        request.bearingGon = d();
        request.aX = d();
        request.aY = d();
        request.bX = d();
        request.bY = d();
        request.along = d();
        request.measured = i();
        request.pieces = i();
        request.alternative = i();
        request.rounded = i();
        request.decimals = i();
        request.roundingTolerance = d();
        request.askLibrary = i();
        int count = i();
        Amount[] amounts = count == 0 ? new Amount[0] : (Amount[]) new Amount().toArray(count);
        for (Amount amount : amounts) {
            amount.structSize = amount.size();
            amount.given = i();
            amount.first = d();
            amount.second = d();
            amount.write();
        }
        int rings = i();
        double[] outer = ring();
        PointerByReference parcel = new PointerByReference();
        must(plcalc.plc_parcel_make(outer, outer.length / 2, parcel));
        for (int k = 1; k < rings; ++k) {
            double[] hole = ring();
            must(plcalc.plc_parcel_add_hole(parcel.getValue(), hole, hole.length / 2));
        }
        PointerByReference division = new PointerByReference();
        Pointer first = count == 0 ? null : amounts[0].getPointer();
        int code = plcalc.plc_divide(parcel.getValue(), request, first, count, division);
        if (code != NO_ANSWER)
            must(code);
        plcalc.plc_parcel_free(parcel.getValue());
        sayDivision(division.getValue());
        plcalc.plc_division_free(division.getValue());
    }

    void geometry(String name) {
        double[] xy = new double[4];
        if (name.equals("signed_area")) {
            DoubleByReference area = new DoubleByReference();
            double[] ring = ring();
            must(plcalc.plc_signed_area(ring, ring.length / 2, area));
            say(area.getValue());
        } else if (name.equals("fraz_area")) {
            int cut = i();
            int kind = i();
            double[] values = d(2);
            double[] side = d(4);
            double[] ring = ring();
            int code = plcalc.plc_fraz_area(ring, ring.length / 2, side[0], side[1], side[2], side[3], cut, kind,
                                            values[0], values[1], xy);
            say((long) (code == OK ? 1 : 0));
            say(xy);
        } else if (name.equals("meet_segments")) {
            say((long) (plcalc.plc_meet_segments(d(4), d(4), xy) == OK ? 1 : 0));
            say(xy[0], xy[1]);
        } else if (name.equals("polar_point")) {
            must(plcalc.plc_polar_point(d(), d(), d(), d(), d(), d(), xy));
            say(xy[0], xy[1]);
        } else {
            DoubleByReference abscissa = new DoubleByReference();
            DoubleByReference ordinate = new DoubleByReference();
            must(plcalc.plc_offsets_of(d(), d(), d(), d(), d(), d(), xy, abscissa, ordinate));
            say(xy[0], xy[1], abscissa.getValue(), ordinate.getValue());
        }
    }

    public static void main(String[] arguments) throws IOException {
        for (String line : Files.readAllLines(Paths.get(arguments[0]))) {
            if (line.isEmpty() || line.charAt(0) == '#')
                continue;
            Answers answers = new Answers(line);
            String name = answers.words.remove();
            if (name.equals("divide"))
                answers.divide();
            else
                answers.geometry(name);
            System.out.println(name + answers.said);
        }
    }
}
