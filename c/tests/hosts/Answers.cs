// Answers.exe REQUESTS: the answers to requests.txt, through P/Invoke. The library is found on the loader's path.

using System;
using System.Collections.Generic;
using System.Globalization;
using System.IO;
using System.Runtime.InteropServices;

static class Plcalc
{
    const string Library = "plcalc_c";

    [StructLayout(LayoutKind.Sequential)]
    public struct Request
    {
        public uint StructSize;
        public int Cut;
        public long Index, Ring;
        public double BearingGon, Ax, Ay, Bx, By, Along;
        public int Measured, Pieces;
        public long Alternative;
        public int Rounded, Decimals;
        public double RoundingTolerance;
        public int AskLibrary, Reserved;
    }

    [StructLayout(LayoutKind.Sequential)]
    public struct Amount
    {
        public uint StructSize;
        public int Given;
        public double First, Second;
    }

    [StructLayout(LayoutKind.Sequential)]
    public struct DivisionInfo
    {
        public uint StructSize;
        public int Status;
        public long AtAmount;
        public int Boundary, Decimals;
        public double Area;
        public long Lines, Pieces, Held, Bare, Trials;
    }

    [StructLayout(LayoutKind.Sequential)]
    public struct LineInfo
    {
        public uint StructSize;
        public int LibraryAgrees;
        public double FromX, FromY, ToX, ToY;
        public long Segments;
        public int MeetsAgain, Reserved;
    }

    [StructLayout(LayoutKind.Sequential)]
    public struct PieceInfo
    {
        public uint StructSize;
        public int Reserved;
        public long Amount, Vertices, Holes;
        public double Area, Asked, Residual;
    }

    [StructLayout(LayoutKind.Sequential)]
    public struct HeldInfo
    {
        public uint StructSize;
        public int Reserved;
        public long Pieces;
        public double Asked, Area, Residual;
    }

    [StructLayout(LayoutKind.Sequential)]
    public struct Range
    {
        public uint StructSize;
        public int LeastIsHad;
        public double Least, Most;
        public int MostIsHad, Reserved;
    }

    [StructLayout(LayoutKind.Sequential)]
    public struct FeasibleInfo
    {
        public uint StructSize;
        public int Refused;
        public long Ranges;
        public double Parcel;
    }

    [StructLayout(LayoutKind.Sequential)]
    public struct Nearest
    {
        public uint StructSize;
        public int HasBelow;
        public double Below, Above;
        public int HasAbove, BelowIsHad, AboveIsHad, Reserved;
    }

    [StructLayout(LayoutKind.Sequential)]
    public struct Alternative
    {
        public uint StructSize;
        public int Cut;
        public long Index, Ring;
        public int Measured, LeastIsHad;
        public double Least, Most;
        public int MostIsHad, Reserved;
    }

    [StructLayout(LayoutKind.Sequential)]
    public struct AlternativesInfo
    {
        public uint StructSize;
        public int Refused;
        public long Lines, LookedAt, Of;
    }

    [StructLayout(LayoutKind.Sequential)]
    public struct Search
    {
        public uint StructSize;
        public int Wanted;
        public double X, Y, BearingGon, Distance, AngleGon, TiedWithin;
    }

    [StructLayout(LayoutKind.Sequential)]
    public struct Candidate
    {
        public uint StructSize;
        public int Reserved;
        public long Index, Ring;
        public double Length, BearingGon, TurnedGon, Distance, Alongside;
    }

    [StructLayout(LayoutKind.Sequential)]
    public struct Choice
    {
        public uint StructSize;
        public int Status, Boundary, HasNext;
        public long Candidates;
        public double Nearest;
    }

    [DllImport(Library)] public static extern int plc_all_divisions(IntPtr parcel, ref Request request, Amount[] amounts,
                                                                    long count, out IntPtr divisions);
    [DllImport(Library)] public static extern long plc_divisions_count(IntPtr divisions);
    [DllImport(Library)] public static extern IntPtr plc_divisions_at(IntPtr divisions, long index);
    [DllImport(Library)] public static extern void plc_divisions_free(IntPtr divisions);
    [DllImport(Library)] public static extern int plc_feasible(IntPtr parcel, ref Request request,
                                                               [In, Out] Range[] ranges, long room,
                                                               ref FeasibleInfo info);
    [DllImport(Library)] public static extern int plc_nearest_amounts(Range[] ranges, long count, double area,
                                                                      ref Nearest nearest);
    [DllImport(Library)] public static extern int plc_alternatives_for(IntPtr parcel, ref Amount amount, int measured,
                                                                       long most, [In, Out] Alternative[] lines,
                                                                       long room, ref AlternativesInfo info);
    [DllImport(Library)] public static extern int plc_other_make(double[] xyxy, long count, out IntPtr other);
    [DllImport(Library)] public static extern void plc_other_free(IntPtr other);
    [DllImport(Library)] public static extern int plc_find(IntPtr parcel, ref Search search, IntPtr other,
                                                           [In, Out] Candidate[] candidates, long room,
                                                           ref Choice choice);
    [DllImport(Library)] public static extern IntPtr plc_status_text(int status);
    [DllImport(Library)] public static extern IntPtr plc_boundary_text(int boundary);
    [DllImport(Library)] public static extern IntPtr plc_choice_text(int status);
    [DllImport(Library)] public static extern int plc_parcel_make(double[] xy, long count, out IntPtr parcel);
    [DllImport(Library)] public static extern int plc_parcel_add_hole(IntPtr parcel, double[] xy, long count);
    [DllImport(Library)] public static extern void plc_parcel_free(IntPtr parcel);
    [DllImport(Library)] public static extern int plc_divide(IntPtr parcel, ref Request request, Amount[] amounts,
                                                             long count, out IntPtr division);
    [DllImport(Library)] public static extern void plc_division_free(IntPtr division);
    [DllImport(Library)] public static extern IntPtr plc_division_text(IntPtr division);
    [DllImport(Library)] public static extern int plc_division_get(IntPtr division, ref DivisionInfo info);
    [DllImport(Library)] public static extern int plc_division_line(IntPtr division, long line, ref LineInfo info);
    [DllImport(Library)] public static extern int plc_division_segment(IntPtr division, long line, long segment,
                                                                       double[] xyxy);
    [DllImport(Library)] public static extern int plc_division_piece(IntPtr division, long piece, ref PieceInfo info);
    [DllImport(Library)] public static extern int plc_division_ring(IntPtr division, long piece, long ring, double[] xy,
                                                                    long room, out long count);
    [DllImport(Library)] public static extern int plc_division_held(IntPtr division, long amount, ref HeldInfo info);
    [DllImport(Library)] public static extern int plc_division_bare(IntPtr division, long cut, double[] xyxy);
    [DllImport(Library)] public static extern int plc_signed_area(double[] xy, long count, out double area);
    [DllImport(Library)] public static extern int plc_fraz_area(double[] xy, long count, double x1, double y1, double x2,
                                                                double y2, int cut, int areaKind, double value1,
                                                                double value2, double[] xyxy);
    [DllImport(Library)] public static extern int plc_meet_segments(double[] segment1, double[] segment2, double[] xy);
    [DllImport(Library)] public static extern int plc_polar_point(double stationX, double stationY, double refX,
                                                                  double refY, double angle, double distance,
                                                                  double[] xy);
    [DllImport(Library)] public static extern int plc_offsets_of(double aX, double aY, double bX, double bY, double x,
                                                                 double y, double[] footXy, out double abscissa,
                                                                 out double ordinate);
}

static class Answers
{
    const int Ok = 0, NoAnswer = 1;

    static Queue<string> words;
    static List<string> said;

    static int I() { return int.Parse(words.Dequeue(), CultureInfo.InvariantCulture); }

    static double D() { return double.Parse(words.Dequeue(), CultureInfo.InvariantCulture); }

    static double[] D(int count)
    {
        var numbers = new double[count];
        for (int i = 0; i < count; ++i)
            numbers[i] = D();
        return numbers;
    }

    static double[] Ring() { return D(2 * I()); }

    static void Say(long number) { said.Add(number.ToString(CultureInfo.InvariantCulture)); }

    static void Say(params double[] numbers)
    {
        foreach (double number in numbers)
            said.Add(BitConverter.DoubleToInt64Bits(number).ToString("x16"));
    }

    static void SayText(IntPtr text) { said.Add("'" + Marshal.PtrToStringAnsi(text) + "'"); }

    static void Must(int code)
    {
        if (code != Ok)
            throw new Exception("code " + code);
    }

    static void MustOrNoAnswer(int code)
    {
        if (code != NoAnswer)
            Must(code);
    }

    static uint SizeOf<T>() { return (uint)Marshal.SizeOf(typeof(T)); }

    static void SayRing(IntPtr division, long piece, long ring)
    {
        long count;
        Must(Plcalc.plc_division_ring(division, piece, ring, null, 0, out count));
        var xy = new double[2 * count];
        Must(Plcalc.plc_division_ring(division, piece, ring, xy, count, out count));
        Say(count);
        Say(xy);
    }

    static void SayDivision(IntPtr division)
    {
        SayText(Plcalc.plc_division_text(division));
        var info = new Plcalc.DivisionInfo { StructSize = SizeOf<Plcalc.DivisionInfo>() };
        Must(Plcalc.plc_division_get(division, ref info));
        Say(info.AtAmount);
        Say((long)info.Decimals);
        Say(info.Area);
        Say(info.Trials);
        var xyxy = new double[4];
        for (long i = 0; i < info.Lines; ++i) {
            var line = new Plcalc.LineInfo { StructSize = SizeOf<Plcalc.LineInfo>() };
            Must(Plcalc.plc_division_line(division, i, ref line));
            Say(line.FromX, line.FromY, line.ToX, line.ToY);
            Say((long)line.MeetsAgain);
            Say((long)line.LibraryAgrees);
            Say(line.Segments);
            for (long k = 0; k < line.Segments; ++k) {
                Must(Plcalc.plc_division_segment(division, i, k, xyxy));
                Say(xyxy);
            }
        }
        for (long i = 0; i < info.Pieces; ++i) {
            var piece = new Plcalc.PieceInfo { StructSize = SizeOf<Plcalc.PieceInfo>() };
            Must(Plcalc.plc_division_piece(division, i, ref piece));
            Say(piece.Amount);
            Say(piece.Area, piece.Asked, piece.Residual);
            SayRing(division, i, 0);
            Say(piece.Holes);
            for (long k = 0; k < piece.Holes; ++k)
                SayRing(division, i, k + 1);
        }
        for (long i = 0; i < info.Held; ++i) {
            var held = new Plcalc.HeldInfo { StructSize = SizeOf<Plcalc.HeldInfo>() };
            Must(Plcalc.plc_division_held(division, i, ref held));
            Say(held.Pieces);
            Say(held.Asked, held.Area, held.Residual);
        }
        for (long i = 0; i < info.Bare; ++i) {
            Say((long)(Plcalc.plc_division_bare(division, i, xyxy) == Ok ? 1 : 0));
            Say(xyxy);
        }
    }

    static Plcalc.Request LineOf()
    {
        return new Plcalc.Request {
            StructSize = SizeOf<Plcalc.Request>(), Cut = I(), Index = I(), Ring = I(), BearingGon = D(), Ax = D(),
            Ay = D(), Bx = D(), By = D(), Along = D(), Measured = I(), Pieces = I()
        };
    }

    static Plcalc.Request RequestOf()
    {
        Plcalc.Request request = LineOf();
        request.Alternative = I();
        request.Rounded = I();
        request.Decimals = I();
        request.RoundingTolerance = D();
        request.AskLibrary = I();
        return request;
    }

    static Plcalc.Amount AmountOf()
    {
        return new Plcalc.Amount { StructSize = SizeOf<Plcalc.Amount>(), Given = I(), First = D(), Second = D() };
    }

    static Plcalc.Amount[] AmountsOf()
    {
        var amounts = new Plcalc.Amount[I()];
        for (int i = 0; i < amounts.Length; ++i)
            amounts[i] = AmountOf();
        return amounts;
    }

    static IntPtr ParcelOf()
    {
        int rings = I();
        double[] ring = Ring();
        IntPtr parcel;
        Must(Plcalc.plc_parcel_make(ring, ring.Length / 2, out parcel));
        for (int k = 1; k < rings; ++k) {
            ring = Ring();
            Must(Plcalc.plc_parcel_add_hole(parcel, ring, ring.Length / 2));
        }
        return parcel;
    }

    static void Divide()
    {
        Plcalc.Request request = RequestOf();
        Plcalc.Amount[] amounts = AmountsOf();
        IntPtr parcel = ParcelOf(), division;
        MustOrNoAnswer(Plcalc.plc_divide(parcel, ref request, amounts, amounts.Length, out division));
        Plcalc.plc_parcel_free(parcel);
        SayDivision(division);
        Plcalc.plc_division_free(division);
    }

    static void AllDivisions()
    {
        Plcalc.Request request = RequestOf();
        Plcalc.Amount[] amounts = AmountsOf();
        IntPtr parcel = ParcelOf(), divisions;
        MustOrNoAnswer(Plcalc.plc_all_divisions(parcel, ref request, amounts, amounts.Length, out divisions));
        Plcalc.plc_parcel_free(parcel);
        long count = Plcalc.plc_divisions_count(divisions);
        Say(count);
        for (long i = 0; i < count; ++i)
            SayDivision(Plcalc.plc_divisions_at(divisions, i));
        Plcalc.plc_divisions_free(divisions);
    }

    static void SayRefusal(int refused)
    {
        if (refused == 0)
            said.Add("''");
        else
            SayText(Plcalc.plc_status_text(refused));
    }

    static void Feasible()
    {
        Plcalc.Request line = LineOf();
        double area = D();
        IntPtr parcel = ParcelOf();
        var info = new Plcalc.FeasibleInfo { StructSize = SizeOf<Plcalc.FeasibleInfo>() };
        var ranges = new Plcalc.Range[16];
        ranges[0].StructSize = SizeOf<Plcalc.Range>();
        MustOrNoAnswer(Plcalc.plc_feasible(parcel, ref line, ranges, ranges.Length, ref info));
        Plcalc.plc_parcel_free(parcel);
        SayRefusal(info.Refused);
        Say(info.Parcel);
        Say(info.Ranges);
        for (long i = 0; i < info.Ranges; ++i) {
            Say(ranges[i].Least, ranges[i].Most);
            Say((long)ranges[i].LeastIsHad);
            Say((long)ranges[i].MostIsHad);
        }
        var nearest = new Plcalc.Nearest { StructSize = SizeOf<Plcalc.Nearest>() };
        Must(Plcalc.plc_nearest_amounts(ranges, info.Ranges, area, ref nearest));
        Say((long)nearest.HasBelow);
        Say(nearest.Below);
        Say((long)nearest.HasAbove);
        Say(nearest.Above);
        Say((long)nearest.BelowIsHad);
        Say((long)nearest.AboveIsHad);
    }

    static void Alternatives()
    {
        Plcalc.Amount amount = AmountOf();
        int measured = I(), most = I();
        IntPtr parcel = ParcelOf();
        var info = new Plcalc.AlternativesInfo { StructSize = SizeOf<Plcalc.AlternativesInfo>() };
        var lines = new Plcalc.Alternative[most];
        lines[0].StructSize = SizeOf<Plcalc.Alternative>();
        MustOrNoAnswer(Plcalc.plc_alternatives_for(parcel, ref amount, measured, most, lines, most, ref info));
        Plcalc.plc_parcel_free(parcel);
        SayRefusal(info.Refused);
        Say(info.LookedAt);
        Say(info.Of);
        Say(info.Lines);
        for (long i = 0; i < info.Lines; ++i) {
            Say((long)lines[i].Cut);
            Say(lines[i].Index);
            Say(lines[i].Ring);
            Say((long)lines[i].Measured);
            Say(lines[i].Least, lines[i].Most);
            Say((long)lines[i].LeastIsHad);
            Say((long)lines[i].MostIsHad);
        }
    }

    static void Find()
    {
        var search = new Plcalc.Search {
            StructSize = SizeOf<Plcalc.Search>(), Wanted = I(), X = D(), Y = D(), BearingGon = D(), Distance = D(),
            AngleGon = D(), TiedWithin = D()
        };
        int count = I();
        IntPtr other;
        Must(Plcalc.plc_other_make(D(4 * count), count, out other));
        IntPtr parcel = ParcelOf();
        var choice = new Plcalc.Choice { StructSize = SizeOf<Plcalc.Choice>() };
        var candidates = new Plcalc.Candidate[16];
        candidates[0].StructSize = SizeOf<Plcalc.Candidate>();
        MustOrNoAnswer(Plcalc.plc_find(parcel, ref search, other, candidates, candidates.Length, ref choice));
        Plcalc.plc_parcel_free(parcel);
        Plcalc.plc_other_free(other);
        SayText(Plcalc.plc_choice_text(choice.Status));
        SayText(Plcalc.plc_boundary_text(choice.Boundary));
        Say(choice.Nearest);
        Say(choice.Candidates);
        for (long i = 0; i < choice.Candidates + choice.HasNext; ++i) {
            Plcalc.Candidate each = candidates[i];
            Say(each.Index);
            Say(each.Ring);
            Say(each.Length, each.BearingGon, each.TurnedGon, each.Distance, each.Alongside);
        }
    }

    static void Geometry(string name)
    {
        var xy = new double[4];
        if (name == "signed_area") {
            double area;
            double[] ring = Ring();
            Must(Plcalc.plc_signed_area(ring, ring.Length / 2, out area));
            Say(area);
        } else if (name == "fraz_area") {
            int cut = I(), kind = I();
            double[] values = D(2), side = D(4), ring = Ring();
            int code = Plcalc.plc_fraz_area(ring, ring.Length / 2, side[0], side[1], side[2], side[3], cut, kind,
                                            values[0], values[1], xy);
            Say((long)(code == Ok ? 1 : 0));
            Say(xy);
        } else if (name == "meet_segments") {
            Say((long)(Plcalc.plc_meet_segments(D(4), D(4), xy) == Ok ? 1 : 0));
            Say(xy[0], xy[1]);
        } else if (name == "polar_point") {
            Must(Plcalc.plc_polar_point(D(), D(), D(), D(), D(), D(), xy));
            Say(xy[0], xy[1]);
        } else {
            double abscissa, ordinate;
            Must(Plcalc.plc_offsets_of(D(), D(), D(), D(), D(), D(), xy, out abscissa, out ordinate));
            Say(xy[0], xy[1], abscissa, ordinate);
        }
    }

    static void Main(string[] arguments)
    {
        foreach (string line in File.ReadLines(arguments[0])) {
            if (line.Length == 0 || line[0] == '#')
                continue;
            words = new Queue<string>(line.Split(' '));
            string name = words.Dequeue();
            said = new List<string> { name };
            switch (name) {
            case "divide": Divide(); break;
            case "all_divisions": AllDivisions(); break;
            case "feasible": Feasible(); break;
            case "alternatives": Alternatives(); break;
            case "find": Find(); break;
            default: Geometry(name); break;
            }
            Console.WriteLine(string.Join(" ", said));
        }
    }
}
