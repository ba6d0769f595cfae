// SPDX-License-Identifier: GPL-3.0-or-later

#include "sample_photos.h"

#include "file_bytes.h"

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryFile>

namespace
{

constexpr int width_px = 32;
constexpr int height_px = 24;

QImage picture()
{
    QImage image(width_px, height_px, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgb(x * 8, y * 10, 100 + x - y));
    }
    return image;
}

/// A baseline grey TIFF file: header, pixels, directory (TIFF 6.0, sections 2 and 4).
QByteArray tiff_bytes()
{
    QByteArray pixels;
    for (int i = 0; i < width_px * height_px; ++i)
        pixels += static_cast<char>(i * 7);
    QByteArray directory;
    const auto put = [&directory](quint32 value, int bytes) {
        for (int i = 0; i < bytes; ++i)
            directory += static_cast<char>(value >> (8 * i));
    };
    const struct {
        quint32 tag;
        quint32 value;
    } entries[] = {{256, width_px}, {257, height_px}, {258, 8},
                   {259, 1},        {262, 1},         {273, 8},
                   {277, 1},        {278, height_px}, {279, static_cast<quint32>(pixels.size())}};
    constexpr quint32 long_type = 4;
    put(std::size(entries), 2);
    for (const auto &entry : entries) {
        put(entry.tag, 2);
        put(long_type, 2);
        put(1, 4);
        put(entry.value, 4);
    }
    put(0, 4);
    QByteArray header("II*\0", 4);
    const quint32 offset = 8 + static_cast<quint32>(pixels.size());
    for (int i = 0; i < 4; ++i)
        header += static_cast<char>(offset >> (8 * i));
    return header + pixels + directory;
}

}  // namespace

void make_jpeg(const QString &path, const QStringList &tags)
{
    make_file(path, bytes_of(SAMPLE_JPEG));
    set_tags(path, tags);
}

void make_png(const QString &path, const QStringList &tags)
{
    if (!picture().save(path, "PNG"))
        qFatal("can't make %s", qPrintable(path));
    set_tags(path, tags);
}

void make_tiff(const QString &path, const QStringList &tags)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(tiff_bytes()) == -1)
        qFatal("can't make %s", qPrintable(path));
    file.close();
    set_tags(path, tags);
}

void set_tags(const QString &path, const QStringList &tags)
{
    if (tags.isEmpty())
        return;
    QStringList arguments = {"-overwrite_original", "-m", "-q"};
    for (const QString &tag : tags)
        arguments << "-" + tag;
    run_exiftool(arguments << path);
}

QMap<QString, QString> all_tags(const QString &path)
{
    QMap<QString, QString> tags;
    const QStringList lines =
        QString::fromUtf8(run_exiftool({"-a", "-G1", "-args", "-f", path})).split('\n');
    for (const QString &line : lines) {
        const int equals = line.indexOf('=');
        if (equals > 0)
            tags[line.mid(1, equals - 1)] = line.mid(equals + 1);
    }
    return tags;
}

QString tag_of(const QString &path, const QString &name)
{
    return all_tags(path).value(name);
}

QByteArray picture_data(const QString &path)
{
    const QImage image(path);
    if (!image.isNull()) {
        const QImage pixels = image.convertToFormat(QImage::Format_ARGB32);
        return QByteArray(reinterpret_cast<const char *>(pixels.constBits()),
                          static_cast<int>(pixels.sizeInBytes()));
    }
    // Qt for Windows decodes no JPEG, which is compressed from the last start of a scan on.
    if (path.endsWith(".jpg")) {
        const QByteArray bytes = bytes_of(path);
        return bytes.mid(bytes.lastIndexOf("\xff\xda"));
    }
    // Nothing here decodes TIFF: the only strip is stored uncompressed.
    const int offset = tag_of(path, "IFD0:StripOffsets").toInt();
    const int size = tag_of(path, "IFD0:StripByteCounts").toInt();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !file.seek(offset))
        return QByteArray();
    return file.read(size);
}

QByteArray run_exiftool(const QStringList &arguments)
{
    // Uses an argument file, so that names with a leading dash are names (exiftool(1), -@).
    QTemporaryFile list;
    if (!list.open())
        qFatal("no temporary file");
    list.write(arguments.join("\n").toUtf8() + "\n");
    list.close();
    QProcess process;
    process.start(EXIFTOOL_PROGRAM, {"-charset", "filename=utf8", "-@", list.fileName()});
    if (!process.waitForFinished(300000))
        qFatal("exiftool doesn't end");
    return process.readAllStandardOutput().replace("\r\n", "\n");
}
