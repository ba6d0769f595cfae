// SPDX-License-Identifier: GPL-3.0-or-later

#include "faulty_batch.h"

#include <QCryptographicHash>
#include <QDirIterator>

#include <fcntl.h>

namespace
{

const char unharmed_picture[] = "the picture as it was";

QByteArray digest(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex();
}

/// Dates a file to 2018-01-02 04:04:05 in the time zone of the tests, plus a fraction that the tool
/// can't write.
void date_file(const QString &path)
{
    const timespec time = {1514862245, 987654321};
    const timespec times[] = {time, time};
    if (utimensat(AT_FDCWD, QFile::encodeName(path), times, 0) != 0)
        qFatal("%s can't be dated", qPrintable(path));
}

QString original_for(const QString &name)
{
    return name.endsWith(".png") ? "photo.png" : "photo.jpg";
}

}  // namespace

const QStringList first_dates = {
    "ExifIFD:CreateDate=2017:05:03 12:00:01",
    "ExifIFD:DateTimeOriginal=2017:05:03 12:00:00",
    "IFD0:ModifyDate=2017:06:01 08:30:00",
    "IPTC:TimeCreated=12:00:00+02:00",
    "System:FileModifyDate=2018:01:02 04:04:05+01:00",
    "XMP-photoshop:DateCreated=2017:05:03 12:00:00",
    unharmed_picture,
};

const QStringList fixed_dates = {
    "ExifIFD:CreateDate=2017:05:03 13:00:00",
    "ExifIFD:DateTimeOriginal=2017:05:03 13:00:00",
    "IFD0:ModifyDate=2017:05:03 13:00:00",
    "IPTC:TimeCreated=13:00:00+02:00",
    "System:FileModifyDate=2017:05:03 13:00:00+02:00",
    "XMP-photoshop:DateCreated=2017:05:03 13:00:00",
    unharmed_picture,
};

faulty_batch::faulty_batch()
{
    // All entries except the file's own date and the picture.
    const QStringList tags = first_dates.filter(QRegularExpression("^(?!System:).*="));
    make_jpeg(originals.filePath("photo.jpg"), tags);
    make_png(originals.filePath("photo.png"), tags);
}

void faulty_batch::start()
{
    real_tool_window::start();
    QDir(folder->path()).mkdir("sub");
    put_photo("a.jpg");
    put_photo("z.png");
}

void faulty_batch::end()
{
    QFile::setPermissions(path_of("sub"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    real_tool_window::end();
}

QString faulty_batch::put_photo(const QString &name) const
{
    const QString path = path_of(name);
    if (!QFile::copy(originals.filePath(original_for(name)), path))
        qFatal("%s can't be made", qPrintable(path));
    date_file(path);
    return path;
}

void faulty_batch::load(const QStringList &paths) const
{
    drop_photos(*window, QStringList{path_of("a.jpg")} + paths + QStringList{path_of("z.png")});
}

QStringList faulty_batch::fix() const
{
    type_shift(*window, "hour", "1");
    const box_answers answers({box_reply::yes});
    click(window->button_fix_time);
    return answers.texts().join('\n').split('\n').filter(folder->path());
}

QStringList faulty_batch::undo() const
{
    const box_answers answers;
    click(window->button_undo);
    return answers.texts();
}

QStringList faulty_batch::dates(const QString &name) const
{
    const QMap<QString, QString> tags = all_tags(path_of(name));
    QStringList lines;
    for (const char *tag :
         {"ExifIFD:CreateDate", "ExifIFD:DateTimeOriginal", "IFD0:DateTimeOriginal",
          "IFD0:ModifyDate", "IPTC:DateCreated", "IPTC:TimeCreated", "System:FileModifyDate",
          "XMP-photoshop:DateCreated"}) {
        if (tags.contains(tag))
            lines << QString("%1=%2").arg(tag, tags[tag]);
    }
    const bool unharmed =
        picture_data(path_of(name)) == picture_data(originals.filePath(original_for(name)));
    return lines << (unharmed ? unharmed_picture : "another picture");
}

QStringList faulty_batch::good_dates() const
{
    const QStringList one = dates("a.jpg");
    const QStringList other = dates("z.png");
    return one == other ? one : one + other;
}

QStringList faulty_batch::contents() const
{
    QStringList paths;
    QDirIterator all(folder->path(),
                     QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                     QDirIterator::Subdirectories);
    while (all.hasNext())
        paths << QDir(folder->path()).relativeFilePath(all.next());
    paths.sort();
    return paths;
}

QStringList file_state(const QString &path)
{
    struct stat status = {};
    if (lstat(QFile::encodeName(path), &status) != 0)
        return {"none"};
    QStringList state = {
        "mode " + QString::number(status.st_mode, 8),
        "inode " + QString::number(status.st_ino),
        "names " + QString::number(status.st_nlink),
        "size " + QString::number(status.st_size),
        QString("time %1.%2").arg(status.st_mtim.tv_sec).arg(status.st_mtim.tv_nsec),
        "target " + QFile::symLinkTarget(path)};
    if (S_ISREG(status.st_mode) && (status.st_mode & S_IRUSR) != 0)
        state << "bytes " + digest(bytes_of(path));
    return state;
}
