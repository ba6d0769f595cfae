// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/button_custom.h"
#include "widget_test_main.h"

#include <QImage>
#include <QPainter>
#include <QStyle>
#include <QWindow>

using orv::button_custom;

namespace
{

const QRect place(20, 10, 60, 30);

/// A red window with a button that has everything that a push button would paint.
struct red_window {
    red_window()
    {
        QPalette palette;
        palette.setColor(QPalette::Window, Qt::red);
        window.setPalette(palette);
        window.resize(100, 50);
        custom->setGeometry(place);
        custom->setText("text");
        custom->setIcon(window.style()->standardIcon(QStyle::SP_DialogOkButton));
    }

    QImage picture() { return window.grab().toImage().convertToFormat(QImage::Format_RGB32); }

    QWidget window;
    button_custom *custom = new button_custom(&window);
};

QImage red_picture()
{
    QImage picture(100, 50, QImage::Format_RGB32);
    picture.fill(Qt::red);
    return picture;
}

}  // namespace

class test_button_custom : public QObject
{
    Q_OBJECT

private slots:
    void starts_with_parent_and_callback();
    void paints_nothing_without_a_callback();
    void paints_only_its_callback();
    void callback_may_change();
    void callback_runs_once_per_paint();
    void is_clicked_like_a_push_button();
};

void test_button_custom::starts_with_parent_and_callback()
{
    QWidget parent;
    const auto *without = new button_custom(&parent);
    QCOMPARE(without->parentWidget(), &parent);
    QVERIFY(!without->paint_callback);
    const auto *with = new button_custom(&parent, [](QPainter &) {});
    QVERIFY(with->paint_callback);
    QCOMPARE(with->metaObject()->className(), "orv::button_custom");
    QCOMPARE(with->metaObject()->superClass(), &QPushButton::staticMetaObject);
}

void test_button_custom::paints_nothing_without_a_callback()
{
    red_window red;
    QCOMPARE(red.picture(), red_picture());
    // What a push button would have painted there.
    QPushButton plain("text", &red.window);
    plain.setGeometry(place);
    QVERIFY(red.picture() != red_picture());
}

void test_button_custom::paints_only_its_callback()
{
    red_window red;
    red.custom->paint_callback = [](QPainter &painter) {
        painter.fillRect(5, 5, 10, 10, Qt::blue);
    };
    QImage expected = red_picture();
    QPainter(&expected).fillRect(25, 15, 10, 10, Qt::blue);
    QCOMPARE(red.picture(), expected);
}

void test_button_custom::callback_may_change()
{
    red_window red;
    red.custom->paint_callback = [](QPainter &painter) {
        painter.fillRect(-50, -50, 200, 200, Qt::green);
    };
    QImage expected = red_picture();
    QPainter(&expected).fillRect(place, Qt::green);
    QCOMPARE(red.picture(), expected);
    red.custom->paint_callback = nullptr;
    QCOMPARE(red.picture(), red_picture());
}

void test_button_custom::callback_runs_once_per_paint()
{
    int calls = 0;
    button_custom custom(nullptr, [&](QPainter &painter) {
        QVERIFY(painter.isActive());
        ++calls;
    });
    custom.resize(20, 20);
    custom.grab();
    calls = 0;
    custom.grab();
    QCOMPARE(calls, 1);
}

void test_button_custom::is_clicked_like_a_push_button()
{
    red_window red;
    QSignalSpy clicked(red.custom, &QPushButton::clicked);
    red.window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&red.window));
    QTest::mouseClick(red.window.windowHandle(), Qt::LeftButton, {}, place.center());
    QCOMPARE(clicked.size(), 1);
    QVERIFY(!red.custom->isDown());
}

KELVRA_WIDGET_TEST_MAIN(test_button_custom)
#include "test_button_custom.moc"
