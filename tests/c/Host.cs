// A host in C#: plays three golden scenes, with paths in UTF-16 and in UTF-8.

using System;
using System.Runtime.InteropServices;
using System.Text;

static class Host {
    const string Library = "RasterPlanWriterC";
    const int Metres = 6;

    [DllImport(Library)] static extern IntPtr rpwVersion();
    [DllImport(Library)] static extern IntPtr rpwResultText(int result);
    [DllImport(Library)] static extern int rpwCreateUtf8(byte[] outPath, out IntPtr drawing);
    [DllImport(Library, CharSet = CharSet.Unicode)]
    static extern int rpwCreateUtf16(string outPath, out IntPtr drawing);
    [DllImport(Library)] static extern void rpwDestroy(IntPtr drawing);
    [DllImport(Library)]
    static extern int rpwAddUtf8(IntPtr drawing, byte[] picturePath, double[] leftTop, double[] leftBottom,
                                 double[] rightBottom, double pixelsPerUnit, int unit);
    [DllImport(Library, CharSet = CharSet.Unicode)]
    static extern int rpwAddUtf16(IntPtr drawing, string picturePath, double[] leftTop, double[] leftBottom,
                                  double[] rightBottom, double pixelsPerUnit, int unit);
    [DllImport(Library)]
    static extern int rpwProposePlane(IntPtr drawing, [Out] double[] origin, [Out] double[] xAxis, [Out] double[] yAxis);
    [DllImport(Library)] static extern int rpwWrite3d(IntPtr drawing);
    [DllImport(Library)]
    static extern int rpwWrite2d(IntPtr drawing, double[] origin, double[] xAxis, double[] yAxis);

    static double[] At(double x, double y, double z) { return new[] { x, y, z }; }

    static void Expect(int expected, int result) {
        if (result != expected)
            throw new Exception(result + " instead of " + expected + ": " +
                                Marshal.PtrToStringAnsi(rpwResultText(result)));
    }

    static IntPtr Create(string path) {
        IntPtr drawing;
        Expect(0, rpwCreateUtf16(path, out drawing));
        return drawing;
    }

    static void WriteFlattened() {
        IntPtr drawing = Create("flat-proposed.dxf");
        Expect(0, rpwAddUtf16(drawing, "middle.png", At(4.330127018922194, 2.5, 7), At(4.330127018922194, 2.5, 2),
                              At(12.99038105676658, 7.5, 2), 40, Metres));
        Expect(0, rpwAddUtf16(drawing, "left.png", At(0.01, 0, 8), At(0.01, 0, 3), At(4.340127018922194, 2.5, 3), 40,
                              Metres));
        Expect(0, rpwAddUtf16(drawing, "top.png", At(0.02, 0.01, 12), At(0.02, 0.01, 8),
                              At(8.68025403784439, 5.01, 8), 40, Metres));
        double[] origin = new double[3], xAxis = new double[3], yAxis = new double[3];
        Expect(0, rpwProposePlane(drawing, origin, xAxis, yAxis));
        Expect(8, rpwWrite2d(drawing, origin, At(0, 0, 0), yAxis));
        Expect(0, rpwWrite2d(drawing, origin, xAxis, yAxis));
        rpwDestroy(drawing);
    }

    static void WritePaths() {
        IntPtr drawing = Create("paths.dxf");
        string[] paths = { "D:\\Aufnahmen\\Süd fassade größe.png", "/データ/立面図/東.png", "C:фасад.png",
                           "pictures/nothing/", null };
        for (int i = 0; i < paths.Length; ++i)
            Expect(0, rpwAddUtf16(drawing, paths[i], At(2 * i, 1, 0), At(2 * i, 0, 0), At(2 * i + 1, 0, 0), 100,
                                  Metres));
        Expect(0, rpwWrite3d(drawing));
        rpwDestroy(drawing);
    }

    static byte[] Utf8(string text) { return Encoding.UTF8.GetBytes(text + "\0"); }

    static void WriteUtf8() {
        IntPtr drawing;
        Expect(0, rpwCreateUtf8(Utf8("one.dxf"), out drawing));
        Expect(0, rpwAddUtf8(drawing, Utf8("pictures/plan.png"), At(0, 2, 0), At(0, 0, 0), At(3, 0, 0), 100, Metres));
        Expect(0, rpwWrite3d(drawing));
        Expect(7, rpwAddUtf8(drawing, new byte[] { 0xFF, 0 }, At(0, 2, 0), At(0, 0, 0), At(3, 0, 0), 100, Metres));
        rpwDestroy(drawing);
    }

    static void Main(string[] arguments) {
        if (Marshal.PtrToStringAnsi(rpwVersion()) != arguments[0])
            throw new Exception("the library's version is " + Marshal.PtrToStringAnsi(rpwVersion()));
        WriteFlattened();
        WritePaths();
        WriteUtf8();
    }
}
