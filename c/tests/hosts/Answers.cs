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

    static void Must(int code)
    {
        if (code != Ok)
            throw new Exception("code " + code);
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
        said.Add("'" + Marshal.PtrToStringAnsi(Plcalc.plc_division_text(division)) + "'");
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

    static void Divide()
    {
        var request = new Plcalc.Request {
            StructSize = SizeOf<Plcalc.Request>(), Cut = I(), Index = I(), Ring = I(), BearingGon = D(), Ax = D(),
            Ay = D(), Bx = D(), By = D(), Along = D(), Measured = I(), Pieces = I(), Alternative = I(), Rounded = I(),
            Decimals = I(), RoundingTolerance = D(), AskLibrary = I()
        };
        var amounts = new Plcalc.Amount[I()];
        for (int i = 0; i < amounts.Length; ++i)
            amounts[i] = new Plcalc.Amount { StructSize = SizeOf<Plcalc.Amount>(), Given = I(), First = D(),
                                             Second = D() };
        int rings = I();
        double[] ring = Ring();
        IntPtr parcel, division;
        Must(Plcalc.plc_parcel_make(ring, ring.Length / 2, out parcel));
        for (int k = 1; k < rings; ++k) {
            ring = Ring();
            Must(Plcalc.plc_parcel_add_hole(parcel, ring, ring.Length / 2));
        }
        int code = Plcalc.plc_divide(parcel, ref request, amounts, amounts.Length, out division);
        if (code != NoAnswer)
            Must(code);
        Plcalc.plc_parcel_free(parcel);
        SayDivision(division);
        Plcalc.plc_division_free(division);
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
            if (name == "divide")
                Divide();
            else
                Geometry(name);
            Console.WriteLine(string.Join(" ", said));
        }
    }
}
