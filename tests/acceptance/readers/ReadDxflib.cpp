// Reads a drawing with dxflib and prints every picture and line that it finds, one to a line.

#include <dxflib/dl_creationadapter.h>
#include <dxflib/dl_dxf.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace {

std::string texts(std::initializer_list<double> numbers) {
    std::string all;
    for (const double number : numbers) {
        char text[32];
        std::snprintf(text, sizeof text, " %.17g", number);
        all += text;
    }
    return all;
}

class Reader : public DL_CreationAdapter {
public:
    void addImage(const DL_ImageData& image) override {
        m_images.emplace_back(
            image.ref,
            texts({image.ipx, image.ipy, image.ipz, image.ux, image.uy, image.uz, image.vx, image.vy,
                   image.vz, static_cast<double>(image.width), static_cast<double>(image.height)}));
    }

    void linkImage(const DL_ImageDefData& definition) override { m_files[definition.ref] = definition.file; }

    void addLine(const DL_LineData& line) override {
        m_lines.push_back(texts({line.x1, line.y1, line.z1, line.x2, line.y2, line.z2}));
    }

    void print() const {
        for (const auto& [reference, numbers] : m_images) {
            const auto file = m_files.find(reference);
            std::printf("image%s %s\n", numbers.c_str(), file == m_files.end() ? "" : file->second.c_str());
        }
        for (const std::string& numbers : m_lines)
            std::printf("line%s\n", numbers.c_str());
    }

private:
    std::vector<std::pair<std::string, std::string>> m_images;
    std::vector<std::string> m_lines;
    std::map<std::string, std::string> m_files;
};

} // namespace

int main(int count, char** arguments) {
    Reader reader;
    DL_Dxf dxf;
    if (count != 2 || !dxf.in(arguments[1], &reader)) {
        std::fprintf(stderr, "cannot read the drawing\n");
        return EXIT_FAILURE;
    }
    reader.print();
    return EXIT_SUCCESS;
}
