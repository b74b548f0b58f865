#include "demo/portrait.h"

#include <QtEndian>

namespace demo {
namespace {

constexpr int width = 64;  // a multiple of four, so that rows need no padding
constexpr int height = 80;
enum Ink : char { Background, Skin, Hair, Clothes, Eyes, inkCount };

using Palette = quint32[inkCount];  // 0xRRGGBB

template <typename T>
void append(QByteArray& bytes, T value) {
    const T little = qToLittleEndian(value);
    bytes.append(reinterpret_cast<const char*>(&little), sizeof little);
}

// Header, palette and rows of an uncompressed bitmap of eight bits a pixel.
QByteArray bitmap(const QByteArray& rowsFromTheBottom, const Palette& palette) {
    constexpr quint32 fileHeader = 14, infoHeader = 40, colours = inkCount * 4;
    constexpr quint32 pixelOffset = fileHeader + infoHeader + colours;
    QByteArray file = "BM";
    append<quint32>(file, pixelOffset + quint32(rowsFromTheBottom.size()));
    append<quint32>(file, 0);
    append<quint32>(file, pixelOffset);
    append<quint32>(file, infoHeader);
    append<qint32>(file, width);
    append<qint32>(file, height);
    append<quint16>(file, 1);
    append<quint16>(file, 8);
    append<quint32>(file, 0);
    append<quint32>(file, quint32(rowsFromTheBottom.size()));
    append<qint32>(file, 2835);  // 72 dots an inch, in dots a metre
    append<qint32>(file, 2835);
    append<quint32>(file, inkCount);
    append<quint32>(file, inkCount);
    for (int ink = 0; ink < inkCount; ++ink) append<quint32>(file, palette[ink]);
    return file + rowsFromTheBottom;
}

bool inEllipse(int x, int y, int centreX, int centreY, int radiusX, int radiusY) {
    const int dx = (x - centreX) * radiusY, dy = (y - centreY) * radiusX;
    return dx * dx + dy * dy <= radiusX * radiusX * radiusY * radiusY;
}

Ink inkAt(int x, int y, bool longHair) {
    const bool leftEye = inEllipse(x, y, 26, 34, 2, 2), rightEye = inEllipse(x, y, 38, 34, 2, 2);
    if (leftEye || rightEye) return Eyes;
    if (inEllipse(x, y, 32, 36, 13, 17) && y > 24) return Skin;
    if (inEllipse(x, y, 32, 28, 16, 16) && y < 34) return Hair;
    if (longHair && inEllipse(x, y, 32, 42, 18, 24) && y < 58) return Hair;
    if (x > 26 && x < 38 && y > 48 && y < 60) return Skin;
    if (inEllipse(x, y, 32, 84, 28, 28)) return Clothes;
    return Background;
}

}  // namespace

QByteArray portrait(Random& random, bool man) {
    static const QVector<quint32> backgrounds = {0xCFE2F3, 0xD9EAD3, 0xFFF2CC, 0xEAD1DC, 0xD0D0D0};
    static const QVector<quint32> skins = {0xF1C9A5, 0xE8B98F, 0xD9A77C, 0xFFDFC4};
    static const QVector<quint32> hairs = {0x2B1B12, 0x4A3020, 0x8A6A3F, 0x111111, 0x9A9A9A, 0xB8742E};
    static const QVector<quint32> clothes = {0x1F3A5F, 0x7A1F2B, 0x2F5D3A, 0x444444, 0x6A4C93};
    const Palette palette = {random.pick(backgrounds), random.pick(skins), random.pick(hairs), random.pick(clothes),
                             0x202020};
    QByteArray rows;
    rows.reserve(width * height);
    for (int y = height - 1; y >= 0; --y)
        for (int x = 0; x < width; ++x) rows += char(inkAt(x, y, !man));
    return bitmap(rows, palette);
}

}  // namespace demo
