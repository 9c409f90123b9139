using System;
using System.Runtime.InteropServices;

static class South {
    [DllImport("RasterPlanWriterC", CharSet = CharSet.Unicode)]
    static extern int rpwCreateUtf16(string outPath, out IntPtr drawing);
    [DllImport("RasterPlanWriterC", CharSet = CharSet.Unicode)]
    static extern int rpwAddUtf16(IntPtr drawing, string picturePath, double[] leftTop, double[] leftBottom,
                                  double[] rightBottom, double pixelsPerUnit, int unit);
    [DllImport("RasterPlanWriterC")] static extern int rpwWrite3d(IntPtr drawing);
    [DllImport("RasterPlanWriterC")] static extern void rpwDestroy(IntPtr drawing);
    [DllImport("RasterPlanWriterC")] static extern IntPtr rpwResultText(int result);

    static int Main() {
        const int success = 0, metres = 6;
        double[] leftTop = { 0, 0, 3 }, leftBottom = { 0, 0, 0 }, rightBottom = { 5, 0, 0 };

        IntPtr drawing;
        int result = rpwCreateUtf16("south.dxf", out drawing);
        if (result == success) // the picture has 1000 x 600 pixels, 200 in a metre
            result = rpwAddUtf16(drawing, "south.png", leftTop, leftBottom, rightBottom, 200, metres);
        if (result == success)
            result = rpwWrite3d(drawing);
        rpwDestroy(drawing);
        if (result != success)
            Console.Error.WriteLine("south.dxf: " + Marshal.PtrToStringAnsi(rpwResultText(result)));
        return result;
    }
}
