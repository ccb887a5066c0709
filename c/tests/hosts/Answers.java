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

    @FieldOrder({"structSize", "leastIsHad", "least", "most", "mostIsHad", "reserved"})
    public static class Range extends Structure {
        public int structSize, leastIsHad;
        public double least, most;
        public int mostIsHad, reserved;
    }

    @FieldOrder({"structSize", "refused", "ranges", "parcel"})
    public static class FeasibleInfo extends Structure {
        public int structSize = size(), refused;
        public long ranges;
        public double parcel;
    }

    @FieldOrder({"structSize", "hasBelow", "below", "above", "hasAbove", "belowIsHad", "aboveIsHad", "reserved"})
    public static class Nearest extends Structure {
        public int structSize = size(), hasBelow;
        public double below, above;
        public int hasAbove, belowIsHad, aboveIsHad, reserved;
    }

    @FieldOrder({"structSize", "cut", "index", "ring", "measured", "leastIsHad", "least", "most", "mostIsHad", "reserved"})
    public static class Alternative extends Structure {
        public int structSize, cut;
        public long index, ring;
        public int measured, leastIsHad;
        public double least, most;
        public int mostIsHad, reserved;
    }

    @FieldOrder({"structSize", "refused", "lines", "lookedAt", "of"})
    public static class AlternativesInfo extends Structure {
        public int structSize = size(), refused;
        public long lines, lookedAt, of;
    }

    @FieldOrder({"structSize", "wanted", "x", "y", "bearingGon", "distance", "angleGon", "tiedWithin"})
    public static class Search extends Structure {
        public int structSize = size(), wanted;
        public double x, y, bearingGon, distance, angleGon, tiedWithin;
    }

    @FieldOrder({"structSize", "reserved", "index", "ring", "length", "bearingGon", "turnedGon", "distance", "alongside"})
    public static class Candidate extends Structure {
        public int structSize, reserved;
        public long index, ring;
        public double length, bearingGon, turnedGon, distance, alongside;
    }

    @FieldOrder({"structSize", "status", "boundary", "hasNext", "candidates", "nearest"})
    public static class Choice extends Structure {
        public int structSize = size(), status, boundary, hasNext;
        public long candidates;
        public double nearest;
    }

    public interface Plcalc extends Library {
        int plc_all_divisions(Pointer parcel, Request request, Pointer amounts, long count, PointerByReference divisions);
        long plc_divisions_count(Pointer divisions);
        Pointer plc_divisions_at(Pointer divisions, long index);
        void plc_divisions_free(Pointer divisions);
        int plc_feasible(Pointer parcel, Request request, Pointer ranges, long room, FeasibleInfo info);
        int plc_nearest_amounts(Pointer ranges, long count, double area, Nearest nearest);
        int plc_alternatives_for(Pointer parcel, Amount amount, int measured, long most, Pointer lines, long room,
                                 AlternativesInfo info);
        int plc_other_make(double[] xyxy, long count, PointerByReference other);
        void plc_other_free(Pointer other);
        int plc_find(Pointer parcel, Search search, Pointer other, Pointer candidates, long room, Choice choice);
        String plc_status_text(int status);
        String plc_boundary_text(int boundary);
        String plc_choice_text(int status);
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

    void sayText(String text) {
        said.append(" '").append(text).append("'");
    }

    static void must(int code) {
        if (code != OK)
            throw new IllegalStateException("code " + code);
    }

    static void mustOrNoAnswer(int code) {
        if (code != NO_ANSWER)
            must(code);
    }

    /** The records of an array, of which the first one knows its size. */
    static Structure[] room(Structure first, int count) {
        Structure[] records = first.toArray(count);
        first.getPointer().setInt(0, first.size());
        return records;
    }

    static void read(Structure[] records) {
        for (Structure record : records)
            record.read();
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
        sayText(plcalc.plc_division_text(division));
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

    Request line() {
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
        return request;
    }

    Request request() {
        Request request = line();
        request.alternative = i();
        request.rounded = i();
        request.decimals = i();
        request.roundingTolerance = d();
        request.askLibrary = i();
        return request;
    }

    void fill(Amount amount) {
        amount.structSize = amount.size();
        amount.given = i();
        amount.first = d();
        amount.second = d();
        amount.write();
    }

    Amount[] amounts() {
        int count = i();
        Amount[] amounts = count == 0 ? new Amount[0] : (Amount[]) new Amount().toArray(count);
        for (Amount amount : amounts)
            fill(amount);
        return amounts;
    }

    Pointer parcel() {
        int rings = i();
        double[] outer = ring();
        PointerByReference parcel = new PointerByReference();
        must(plcalc.plc_parcel_make(outer, outer.length / 2, parcel));
        for (int k = 1; k < rings; ++k) {
            double[] hole = ring();
            must(plcalc.plc_parcel_add_hole(parcel.getValue(), hole, hole.length / 2));
        }
        return parcel.getValue();
    }

    void divide() {
        Request request = request();
        Amount[] amounts = amounts();
        Pointer parcel = parcel();
        PointerByReference division = new PointerByReference();
        Pointer first = amounts.length == 0 ? null : amounts[0].getPointer();
        mustOrNoAnswer(plcalc.plc_divide(parcel, request, first, amounts.length, division));
        plcalc.plc_parcel_free(parcel);
        sayDivision(division.getValue());
        plcalc.plc_division_free(division.getValue());
    }

    void allDivisions() {
        Request request = request();
        Amount[] amounts = amounts();
        Pointer parcel = parcel();
        PointerByReference divisions = new PointerByReference();
        mustOrNoAnswer(
            plcalc.plc_all_divisions(parcel, request, amounts[0].getPointer(), amounts.length, divisions));
        plcalc.plc_parcel_free(parcel);
        long count = plcalc.plc_divisions_count(divisions.getValue());
        say(count);
        for (long i = 0; i < count; ++i)
            sayDivision(plcalc.plc_divisions_at(divisions.getValue(), i));
        plcalc.plc_divisions_free(divisions.getValue());
    }

    void sayRefusal(int refused) {
        sayText(refused == 0 ? "" : plcalc.plc_status_text(refused));
    }

    void feasible() {
        Request line = line();
        double area = d();
        Pointer parcel = parcel();
        FeasibleInfo info = new FeasibleInfo();
        Structure[] ranges = room(new Range(), 16);
        mustOrNoAnswer(plcalc.plc_feasible(parcel, line, ranges[0].getPointer(), ranges.length, info));
        plcalc.plc_parcel_free(parcel);
        read(ranges);
        sayRefusal(info.refused);
        say(info.parcel);
        say(info.ranges);
        for (int i = 0; i < info.ranges; ++i) {
            Range range = (Range) ranges[i];
            say(range.least, range.most);
            say((long) range.leastIsHad);
            say((long) range.mostIsHad);
        }
        Nearest nearest = new Nearest();
        must(plcalc.plc_nearest_amounts(ranges[0].getPointer(), info.ranges, area, nearest));
        say((long) nearest.hasBelow);
        say(nearest.below);
        say((long) nearest.hasAbove);
        say(nearest.above);
        say((long) nearest.belowIsHad);
        say((long) nearest.aboveIsHad);
    }

    void alternatives() {
        Amount amount = new Amount();
        fill(amount);
        int measured = i();
        int most = i();
        Pointer parcel = parcel();
        AlternativesInfo info = new AlternativesInfo();
        Structure[] lines = room(new Alternative(), most);
        mustOrNoAnswer(
            plcalc.plc_alternatives_for(parcel, amount, measured, most, lines[0].getPointer(), most, info));
        plcalc.plc_parcel_free(parcel);
        read(lines);
        sayRefusal(info.refused);
        say(info.lookedAt);
        say(info.of);
        say(info.lines);
        for (int i = 0; i < info.lines; ++i) {
            Alternative line = (Alternative) lines[i];
            say((long) line.cut);
            say(line.index);
            say(line.ring);
            say((long) line.measured);
            say(line.least, line.most);
            say((long) line.leastIsHad);
            say((long) line.mostIsHad);
        }
    }

    void find() {
        Search search = new Search();
        search.wanted = i();
        search.x = d();
        search.y = d();
        search.bearingGon = d();
        search.distance = d();
        search.angleGon = d();
        search.tiedWithin = d();
        int count = i();
        PointerByReference other = new PointerByReference();
        must(plcalc.plc_other_make(d(4 * count), count, other));
        Pointer parcel = parcel();
        Choice choice = new Choice();
        Structure[] candidates = room(new Candidate(), 16);
        mustOrNoAnswer(plcalc.plc_find(parcel, search, other.getValue(), candidates[0].getPointer(), candidates.length,
                                       choice));
        plcalc.plc_parcel_free(parcel);
        plcalc.plc_other_free(other.getValue());
        read(candidates);
        sayText(plcalc.plc_choice_text(choice.status));
        sayText(plcalc.plc_boundary_text(choice.boundary));
        say(choice.nearest);
        say(choice.candidates);
        for (int i = 0; i < choice.candidates + choice.hasNext; ++i) {
            Candidate each = (Candidate) candidates[i];
            say(each.index);
            say(each.ring);
            say(each.length, each.bearingGon, each.turnedGon, each.distance, each.alongside);
        }
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
            switch (name) {
            case "divide": answers.divide(); break;
            case "all_divisions": answers.allDivisions(); break;
            case "feasible": answers.feasible(); break;
            case "alternatives": answers.alternatives(); break;
            case "find": answers.find(); break;
            default: answers.geometry(name); break;
            }
            System.out.println(name + answers.said);
        }
    }
}
