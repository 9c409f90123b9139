// A drawing as dxflib writes it: a line, and an image of 17 x 9 pixels if a picture is named.
// Usage: write_dxflib OUTPUT [PICTURE]

#include <dxflib/dl_dxf.h>

#include <memory>

int main(int count, char** arguments) {
    if (count < 2)
        return 2;
    DL_Dxf dxf;
    const std::unique_ptr<DL_WriterA> writer(dxf.out(arguments[1], DL_Codes::AC1015));
    if (!writer)
        return 1;
    dxf.writeHeader(*writer);
    writer->sectionEnd();
    writer->sectionTables();
    dxf.writeVPort(*writer);
    writer->tableLayers(1);
    dxf.writeLayer(*writer, DL_LayerData("0", 0), DL_Attributes("", 7, -1, "CONTINUOUS", 1.0));
    writer->tableEnd();
    dxf.writeBlockRecord(*writer);
    writer->tableEnd();
    writer->sectionEnd();
    writer->sectionBlocks();
    dxf.writeBlock(*writer, DL_BlockData("*Model_Space", 0, 0.0, 0.0, 0.0));
    dxf.writeEndBlock(*writer, "*Model_Space");
    writer->sectionEnd();

    const DL_Attributes attributes("0", 256, -1, "BYLAYER", 1.0);
    const DL_ImageData image(count > 2 ? arguments[2] : "", 0, 0, 0, 0.01, 0, 0, 0, 0.01, 0, 17, 9, 50, 50,
                             0);
    writer->sectionEntities();
    dxf.writeLine(*writer, DL_LineData(0, 0, 0, 1, 1, 0), attributes);
    const unsigned long definition = count > 2 ? dxf.writeImage(*writer, image, attributes) : 0;
    writer->sectionEnd();
    dxf.writeObjects(*writer);
    if (count > 2)
        dxf.writeImageDef(*writer, static_cast<int>(definition), image);
    dxf.writeObjectsEnd(*writer);
    writer->dxfEOF();
    writer->close();
    return 0;
}
