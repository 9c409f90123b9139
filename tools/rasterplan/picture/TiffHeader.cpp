#include "picture/TiffHeader.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <map>
#include <vector>

namespace rasterplan_tool {
namespace {

enum Tag : std::uint16_t {
    ImageWidth = 256,
    ImageLength = 257,
    StripOffsets = 273,
    StripByteCounts = 279,
    TileOffsets = 324,
    TileByteCounts = 325,
    ModelPixelScale = 33550,
    ModelTiepoint = 33922,
    ModelTransformation = 34264,
    GeoKeyDirectory = 34735
};

constexpr bool isWanted(std::uint64_t tag) {
    for (const Tag wanted :
         {ImageWidth, ImageLength, StripOffsets, StripByteCounts, TileOffsets, TileByteCounts,
          ModelPixelScale, ModelTiepoint, ModelTransformation, GeoKeyDirectory})
        if (tag == wanted)
            return true;
    return false;
}

enum class Type : std::uint16_t { Short = 3, Long = 4, Double = 12, Long8 = 16 };

// In bytes; 0 for a type that none of the wanted tags has.
constexpr std::size_t sizeOf(Type type) {
    switch (type) {
    case Type::Short:
        return 2;
    case Type::Long:
        return 4;
    case Type::Double:
    case Type::Long8:
        return 8;
    }
    return 0;
}

// The values of a tag and where they stand.
struct Field {
    Type type = Type::Short;
    std::uint64_t count = 0;
    std::uint64_t offset = 0;
};

class TiffDirectory {
public:
    explicit TiffDirectory(BinaryFile& file)
        : m_file(file) {
        m_isBigEndian = m_file.read(0, m_bytes).starts_with("MM");
        m_isBigTiff = unsignedAt(2, 2) == 43;
        readFields(unsignedAt(m_isBigTiff ? 8 : 4, offsetSize()));
    }

    bool has(Tag tag) const { return m_fields.contains(tag); }

    // Nothing where the tag is missing, its values are no whole numbers or do not lie in the file.
    std::optional<std::vector<std::uint64_t>> integers(Tag tag) {
        const Field* const field = usableField(tag);
        if (field == nullptr || field->type == Type::Double)
            return std::nullopt;
        return bits(*field);
    }

    // Nothing where the tag is missing, its values are no finite floating-point numbers or do not lie in the
    // file.
    std::optional<std::vector<double>> numbers(Tag tag) {
        const Field* const field = usableField(tag);
        if (field == nullptr || field->type != Type::Double)
            return std::nullopt;
        std::vector<double> numbers;
        for (const std::uint64_t number : bits(*field))
            numbers.push_back(std::bit_cast<double>(number));
        if (!std::all_of(numbers.begin(), numbers.end(), [](double number) { return std::isfinite(number); }))
            return std::nullopt;
        return numbers;
    }

    // The one whole number of a tag; 0 where there is none.
    std::uint64_t integer(Tag tag) {
        const auto values = integers(tag);
        return values && values->size() == 1 ? values->front() : 0;
    }

private:
    std::size_t offsetSize() const { return m_isBigTiff ? 8 : 4; }

    void readFields(std::uint64_t directory) {
        const std::size_t countSize = m_isBigTiff ? 8 : 2;
        const std::size_t fieldSize = m_isBigTiff ? 20 : 12;
        const std::uint64_t count = unsignedAt(directory, countSize);
        if (count > std::numeric_limits<std::uint16_t>::max())
            throw damagedHeader(PictureFormat::Tiff, "its directory is too long");
        std::uint64_t place = directory + countSize;
        for (std::uint64_t i = 0; i < count; ++i, place += fieldSize) {
            const std::uint64_t tag = unsignedAt(place, 2);
            if (!isWanted(tag))
                continue;
            Field field;
            field.type = static_cast<Type>(unsignedAt(place + 2, 2));
            field.count = unsignedAt(place + 4, offsetSize());
            field.offset = place + 4 + offsetSize();
            if (field.count > offsetSize() / std::max<std::size_t>(sizeOf(field.type), 1))
                field.offset = unsignedAt(field.offset, offsetSize());
            m_fields[static_cast<Tag>(tag)] = field;
        }
    }

    const Field* usableField(Tag tag) const {
        const auto found = m_fields.find(tag);
        if (found == m_fields.end())
            return nullptr;
        const Field& field = found->second;
        const std::size_t size = sizeOf(field.type);
        const bool isInFile =
            size > 0 && field.offset <= m_file.size() && field.count <= (m_file.size() - field.offset) / size;
        return isInFile ? &field : nullptr;
    }

    std::vector<std::uint64_t> bits(const Field& field) {
        const std::size_t size = sizeOf(field.type);
        std::vector<std::uint64_t> values;
        values.reserve(field.count);
        for (std::uint64_t i = 0; i < field.count; ++i)
            values.push_back(unsignedAt(field.offset + i * size, size));
        return values;
    }

    std::uint64_t unsignedAt(std::uint64_t offset, std::size_t size) {
        const std::string_view bytes = m_file.read(offset, std::span(m_bytes).first(size));
        if (bytes.size() < size)
            throw damagedHeader(PictureFormat::Tiff, "the file ends in it");
        std::uint64_t number = 0;
        for (std::size_t i = 0; i < size; ++i)
            number = number << 8 | static_cast<unsigned char>(bytes[m_isBigEndian ? i : size - 1 - i]);
        return number;
    }

    BinaryFile& m_file;
    std::array<char, 8> m_bytes{};
    bool m_isBigEndian = false;
    bool m_isBigTiff = false;
    std::map<Tag, Field> m_fields;
};

bool isCutShort(TiffDirectory& directory, std::uint64_t fileSize) {
    const bool isTiled = directory.has(TileOffsets);
    const auto offsets = directory.integers(isTiled ? TileOffsets : StripOffsets);
    const auto counts = directory.integers(isTiled ? TileByteCounts : StripByteCounts);
    if (!offsets || !counts)
        return directory.has(isTiled ? TileOffsets : StripOffsets);
    for (std::size_t i = 0; i < std::min(offsets->size(), counts->size()); ++i)
        if ((*offsets)[i] > fileSize || (*counts)[i] > fileSize - (*offsets)[i])
            return true;
    return false;
}

// The keys of a GeoTIFF whose values stand in the directory of keys itself.
class GeoKeys {
public:
    explicit GeoKeys(std::optional<std::vector<std::uint64_t>> directory)
        : m_directory(std::move(directory).value_or(std::vector<std::uint64_t>())) {}

    // 0, which is no value of such a key, where there is none.
    std::uint64_t operator[](std::uint64_t key) const {
        constexpr std::size_t row =
            4; // key, tag that holds the value, count, value; the first row is another
        for (std::size_t i = row; i + row <= m_directory.size(); i += row)
            if (m_directory[i] == key && m_directory[i + 1] == 0)
                return m_directory[i + 3];
        return 0;
    }

private:
    std::vector<std::uint64_t> m_directory;
};

std::optional<DrawingUnit> unitOf(std::uint64_t code) {
    switch (code) {
    case 9001:
        return Meters;
    case 9002:
        return Feet;
    case 9003:
        return USSurveyFeet;
    default:
        return std::nullopt;
    }
}

std::optional<MapTransform> transformByScale(TiffDirectory& directory) {
    const auto scale = directory.numbers(ModelPixelScale);
    const auto tie = directory.numbers(ModelTiepoint);
    if (!scale || scale->size() < 2 || !tie || tie->size() < 6)
        return std::nullopt;
    // A tie point: column and row, then a third, and the same of the map. Its y grows upwards.
    const double perColumn = (*scale)[0];
    const double perRow = -(*scale)[1];
    return MapTransform{.x = (*tie)[3] - (*tie)[0] * perColumn,
                        .y = (*tie)[4] - (*tie)[1] * perRow,
                        .xPerColumn = perColumn,
                        .yPerRow = perRow};
}

std::optional<MapTransform> transformByMatrix(TiffDirectory& directory) {
    const auto matrix = directory.numbers(ModelTransformation);
    if (!matrix || matrix->size() != 16)
        return std::nullopt;
    return MapTransform{.x = (*matrix)[3],
                        .y = (*matrix)[7],
                        .xPerColumn = (*matrix)[0],
                        .yPerColumn = (*matrix)[4],
                        .xPerRow = (*matrix)[1],
                        .yPerRow = (*matrix)[5]};
}

std::optional<GeoReference> readGeoReference(TiffDirectory& directory) {
    if (!directory.has(ModelPixelScale) && !directory.has(ModelTiepoint) &&
        !directory.has(ModelTransformation))
        return std::nullopt;
    constexpr std::uint64_t modelType = 1024;
    constexpr std::uint64_t geographic = 2;
    constexpr std::uint64_t rasterType = 1025;
    constexpr std::uint64_t pixelIsPoint = 2;
    constexpr std::uint64_t linearUnits = 3076;
    const GeoKeys keys(directory.integers(GeoKeyDirectory));
    GeoReference geo;
    geo.unit = unitOf(keys[linearUnits]);
    const std::optional<MapTransform> transform =
        directory.has(ModelTransformation) ? transformByMatrix(directory) : transformByScale(directory);
    if (keys[modelType] == geographic)
        geo.problem = "its GeoTIFF tags place it by longitude and latitude; bring it into a map with lengths";
    else if (!transform)
        geo.problem = "its GeoTIFF tags hold neither ModelPixelScale with ModelTiepoint nor a whole "
                      "ModelTransformation; place the image by its corners";
    else
        geo.transform = keys[rasterType] == pixelIsPoint ? fromPixelCenter(*transform) : *transform;
    return geo;
}

} // namespace

Picture readTiffHeader(BinaryFile& file) {
    TiffDirectory directory(file);
    const std::uint64_t width = directory.integer(ImageWidth);
    const std::uint64_t height = directory.integer(ImageLength);
    constexpr std::uint64_t most = std::numeric_limits<std::uint32_t>::max();
    if (width < 1 || width > most || height < 1 || height > most)
        throw damagedHeader(PictureFormat::Tiff, "it holds no size");
    return {PictureFormat::Tiff,
            {static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height)},
            isCutShort(directory, file.size()),
            readGeoReference(directory)};
}

} // namespace rasterplan_tool
