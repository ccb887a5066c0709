using System;
using System.Runtime.InteropServices;

static class Divide
{
    [StructLayout(LayoutKind.Sequential)]
    struct Request
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
    struct Amount
    {
        public uint StructSize;
        public int Given;
        public double First, Second;
    }

    [DllImport("plcalc_c")] static extern int plc_parcel_make(double[] xy, long count, out IntPtr parcel);
    [DllImport("plcalc_c")] static extern int plc_divide(IntPtr parcel, ref Request request, Amount[] amounts,
                                                         long count, out IntPtr division);
    [DllImport("plcalc_c")] static extern int plc_division_segment(IntPtr division, long line, long segment,
                                                                   double[] xyxy);
    [DllImport("plcalc_c")] static extern IntPtr plc_division_text(IntPtr division);
    [DllImport("plcalc_c")] static extern void plc_division_free(IntPtr division);
    [DllImport("plcalc_c")] static extern void plc_parcel_free(IntPtr parcel);

    static int Main()
    {
        double[] yard = { 0, 0, 60, 0, 60, 20, 40, 20, 40, 50, 0, 50 };
        var request = new Request { StructSize = (uint)Marshal.SizeOf(typeof(Request)), Cut = 1 }; // perpendicular
        var third = new Amount { StructSize = (uint)Marshal.SizeOf(typeof(Amount)), Given = 2, First = 1, Second = 3 };
        IntPtr parcel, division = IntPtr.Zero;
        int code = plc_parcel_make(yard, yard.Length / 2, out parcel);
        if (code == 0)
            code = plc_divide(parcel, ref request, new[] { third, third }, 2, out division);
        if (code <= 1) {
            var line = new double[4];
            for (long i = 0; plc_division_segment(division, i, 0, line) == 0; ++i)
                Console.WriteLine(FormattableString.Invariant(
                    $"from {line[0]:F4} {line[1]:F4} to {line[2]:F4} {line[3]:F4}"));
            Console.WriteLine(Marshal.PtrToStringAnsi(plc_division_text(division)));
        }
        plc_division_free(division);
        plc_parcel_free(parcel);
        return code;
    }
}
