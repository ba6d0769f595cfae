// SPDX-License-Identifier: GPL-3.0-or-later

#include "screen.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>
#include <QProcess>
#include <QRegularExpression>
#include <QScreen>
#include <QtTest>

namespace
{

/// Less than the second after which the program's wait for a reply times out and it paints anyway.
constexpr int nearly_a_second_ms = 700;
constexpr int widest_frame_px = 40;

QString output_of(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        return {};
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

}  // namespace

QString xdotool(const QStringList &arguments)
{
    return output_of("xdotool", arguments);
}

void move_mouse(QPoint place)
{
    xdotool({"mousemove", QString::number(place.x()), QString::number(place.y())});
}

QString window_with_title(const QString &title)
{
    QString id;
    (void)QTest::qWaitFor([&] {
        id = xdotool({"search", "--onlyvisible", "--name", "^" + title + "$"}).section('\n', -1);
        return !id.isEmpty();
    });
    return id;
}

QRect place_of(const QString &window)
{
    const QString report = output_of("xwininfo", {"-id", window});
    const auto number = [&report](const QString &name) {
        const QRegularExpression line(name + ": +(-?\\d+)");
        return line.match(report).captured(1).toInt();
    };
    return {number("Absolute upper-left X"), number("Absolute upper-left Y"), number("Width"),
            number("Height")};
}

QRect with_frame(const QRect &place)
{
    return place.adjusted(-widest_frame_px, -widest_frame_px, widest_frame_px, widest_frame_px);
}

QImage picture_of(const QRect &place)
{
    return QGuiApplication::primaryScreen()
        ->grabWindow(0, place.x(), place.y(), place.width(), place.height())
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
}

bool same_pixels(QImage seen, QImage expected, const QRegion &hidden)
{
    seen = seen.convertToFormat(QImage::Format_RGB32);
    expected = expected.convertToFormat(QImage::Format_RGB32);
    for (QImage *image : {&seen, &expected}) {
        QPainter painter(image);
        painter.setClipRegion(hidden);
        painter.fillRect(image->rect(), Qt::black);
    }
    return seen == expected;
}

void keep_pictures(const QImage &expected)
{
    const QString folder = QCoreApplication::applicationDirPath();
    picture_of(QGuiApplication::primaryScreen()->geometry()).save(folder + "/seen.png");
    expected.save(folder + "/expected.png");
}

bool within_a_second(const std::function<bool()> &condition)
{
    return QTest::qWaitFor(condition, nearly_a_second_ms);
}
