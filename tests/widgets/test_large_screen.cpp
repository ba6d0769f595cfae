// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/message_box.h"
#include "orv/wrapped_label.h"
#include "when_modal.h"
#include "widget_test_main.h"

#include <QScreen>

#include <functional>

namespace
{

constexpr char scale[] = "0.5";
constexpr int widest_box_px = 1000;  // QMessageBox makes none wider, on any screen

/// Runs `visit` on a box with this text.
void look_at_box(const QString &text, const std::function<void(orv::message_box &)> &visit)
{
    const when_modal<orv::message_box> user(visit);
    orv::message_box::question(nullptr, "Title", text, QMessageBox::Ok, 0);
    QVERIFY(user.answered());
}

}  // namespace

/// Message boxes on a screen of 1600 by 1200 pixels.
class test_large_screen : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void name_that_fits_into_the_widest_box_is_not_broken();
    void name_that_is_wider_than_any_box_wraps();
};

void test_large_screen::initTestCase()
{
    QCOMPARE(QGuiApplication::primaryScreen()->size(), QSize(1600, 1200));
}

void test_large_screen::name_that_fits_into_the_widest_box_is_not_broken()
{
    look_at_box(QString(70, 'x'), [](orv::message_box &box) {
        QVERIFY(box.width() < widest_box_px);
        QVERIFY(!box.findChild<orv::wrapped_label *>());
    });
}

/// The text would fit on the screen, but not into the box.
void test_large_screen::name_that_is_wider_than_any_box_wraps()
{
    look_at_box(QString(110, 'x'), [](orv::message_box &box) {
        QCOMPARE(box.width(), widest_box_px);
        const auto *label = box.findChild<orv::wrapped_label *>();
        QVERIFY(label);
        QCOMPARE(label->visibleRegion(), QRegion(label->rect()));
        QVERIFY(label->height() > label->heightForWidth(2 * widest_box_px));
    });
}

int main(int argc, char **argv)
{
    qputenv("QT_SCALE_FACTOR", scale);
    return run_widget_test<test_large_screen>(argc, argv);
}
#include "test_large_screen.moc"
