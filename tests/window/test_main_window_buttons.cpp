// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "main_window_form.h"
#include "orv/button_dark.h"
#include "orv/lineedit.h"
#include "program_test_main.h"
#include "time_adjustment.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QSettings>
#include <QStyle>

using orv::button_dark;
using button_field = button_dark *MainWindow::*;
Q_DECLARE_METATYPE(button_field)

namespace
{

constexpr char header_sheet[] =
    "#header {background-image: url(:/images/head_medium_dark_without_shadow.png);}";
constexpr char logo_sheet[] = "background-image: url(:images/logo_small.png);";
constexpr char drop_sheet[] = "background-color: black;background-image: "
                              "url(:/images/drop_images_here_%1.png);background-repeat: "
                              "none;background-position: bottom center;";

const QList<button_field> all_buttons = {
    &MainWindow::button_fix_time, &MainWindow::button_undo,  &MainWindow::button_settings,
    &MainWindow::button_help,     &MainWindow::button_about, &MainWindow::button_load_images,
    &MainWindow::button_reset};

QList<int> bytes_of(orv::pixel_argb colour)
{
    return {colour.red, colour.green, colour.blue, colour.alpha};
}

void check_row(const QLayout *layout, int spacing, const QMargins &margins)
{
    QVERIFY(qobject_cast<const QHBoxLayout *>(layout));
    QCOMPARE(layout->spacing(), spacing);
    QCOMPARE(layout->contentsMargins(), margins);
}

void check_stretch(const QLayout *layout, int place)
{
    QVERIFY(layout->itemAt(place) && layout->itemAt(place)->spacerItem());
    QCOMPARE(qobject_cast<const QHBoxLayout *>(layout)->stretch(place), 1);
}

bool is_close(const QColor &a, const QColor &b)
{
    constexpr int rounding = 2;
    return qAbs(a.red() - b.red()) <= rounding && qAbs(a.green() - b.green()) <= rounding &&
           qAbs(a.blue() - b.blue()) <= rounding;
}

/// The first pixel that differs, as text; empty if there is none.
QString difference(const QImage &shown, const QImage &expected)
{
    if (shown.size() != expected.size())
        return "size";
    for (int y = 0; y < shown.height(); ++y) {
        for (int x = 0; x < shown.width(); ++x) {
            const QColor a = shown.pixelColor(x, y);
            const QColor b = expected.pixelColor(x, y);
            if (!is_close(a, b))
                return QString("%1,%2: %3 for %4").arg(x).arg(y).arg(a.name(), b.name());
        }
    }
    return QString();
}

QWidget *widget_at(const QLayout *layout, int place)
{
    return layout->itemAt(place) ? layout->itemAt(place)->widget() : nullptr;
}

}  // namespace

class test_main_window_buttons : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { clear_settings(); }
    void init() { window = new MainWindow(nullptr); }
    void cleanup();
    void button_has_size_skin_tooltip_and_icon_data();
    void button_has_size_skin_tooltip_and_icon();
    void icon_is_centred_data() { button_has_size_skin_tooltip_and_icon_data(); }
    void icon_is_centred();
    void only_undo_starts_disabled();
    void strip_has_settings_left_and_information_right();
    void header_has_the_big_buttons_after_an_indent();
    void header_shows_its_picture_and_logo();
    void controls_are_in_the_middle();
    void drop_area_shows_the_picture_of_its_language_data();
    void drop_area_shows_the_picture_of_its_language();
    void time_fields_have_the_tooltip();

private:
    MainWindow *window = nullptr;
};

void test_main_window_buttons::cleanup()
{
    delete window;
    clear_settings();
}

void test_main_window_buttons::button_has_size_skin_tooltip_and_icon_data()
{
    QTest::addColumn<button_field>("field");
    QTest::addColumn<QString>("tooltip");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QString>("skin");
    QTest::addColumn<QString>("icon");
    const QSize small_size(23, 22);
    // clang-format off
    QTest::newRow("settings") << &MainWindow::button_settings << "Change application settings"
        << small_size << "dark" << ":/images/icon_settings.png";
    QTest::newRow("about") << &MainWindow::button_about << "Show information about the application"
        << small_size << "dark" << ":/images/icon_about.png";
    QTest::newRow("help") << &MainWindow::button_help
        << "Show documentation, shortcuts and usage information" << small_size << "dark"
        << ":/images/icon_help.png";
    QTest::newRow("fix") << &MainWindow::button_fix_time
        << "Apply changes to the timestamps of the images" << QSize(120, 46) << "header"
        << ":/images/icon_fix_time.png";
    QTest::newRow("undo") << &MainWindow::button_undo << "Undo the last set of timestamp changes"
        << QSize(46, 46) << "header" << ":/images/icon_undo.png";
    QTest::newRow("load") << &MainWindow::button_load_images << "Load images" << small_size
        << "dark" << ":/images/icon_open.png";
    QTest::newRow("clear") << &MainWindow::button_reset << "Clear list of loaded images"
        << small_size << "dark" << ":/images/icon_undo_small.png";
    // clang-format on
}

void test_main_window_buttons::button_has_size_skin_tooltip_and_icon()
{
    QFETCH(button_field, field);
    QFETCH(QString, tooltip);
    QFETCH(QSize, size);
    QFETCH(QString, skin);
    QFETCH(QString, icon);
    const button_dark *button = window->*field;
    QCOMPARE(button->minimumSize(), size);
    QCOMPARE(button->maximumSize(), size);
    QCOMPARE(button->skin, skin);
    QVERIFY(button->styleSheet().contains("url(:/gui/button/" + skin + "_normal.png)"));
    QCOMPARE(button->toolTip(), tooltip);
    QCOMPARE(button->text(), QString());
    QCOMPARE(button->icon.path, icon);
    QVERIFY(!button->icon.tinted);
    QCOMPARE(bytes_of(button->icon.hot_colour), QList<int>({240, 240, 240, 255}));
    QCOMPARE(bytes_of(button->icon.normal_colour), QList<int>({129, 136, 133, 255}));
}

void test_main_window_buttons::icon_is_centred()
{
    QFETCH(button_field, field);
    QFETCH(QSize, size);
    button_dark *button = window->*field;
    button->setEnabled(true);
    QImage expected(size, QImage::Format_ARGB32);
    expected.fill(Qt::transparent);
    QImage painted = expected;
    const QImage &icon = *button->icon.image_normal;
    QPainter(&expected).drawImage((size.width() - icon.width()) / 2,
                                  (size.height() - icon.height()) / 2, icon);
    QPainter painter(&painted);
    button->paint_callback_ex(painter, button);
    QCOMPARE(painted, expected);
}

void test_main_window_buttons::only_undo_starts_disabled()
{
    for (const button_field field : all_buttons) {
        QCOMPARE((window->*field)->isEnabled(), field != &MainWindow::button_undo);
        QCOMPARE((window->*field)->window(), window);
    }
    QCOMPARE(window->findChildren<button_dark *>().size(), all_buttons.size());
}

void test_main_window_buttons::strip_has_settings_left_and_information_right()
{
    const QLayout *strip = window->ui->widget_info->layout();
    QVERIFY(strip);
    check_row(strip, 4, QMargins(10, 4, 10, 4));
    QCOMPARE(strip->count(), 4);
    QCOMPARE(widget_at(strip, 0), window->button_settings);
    check_stretch(strip, 1);
    QCOMPARE(widget_at(strip, 2), window->button_about);
    QCOMPARE(widget_at(strip, 3), window->button_help);
}

void test_main_window_buttons::header_has_the_big_buttons_after_an_indent()
{
    const QLayout *frame = window->ui->widget_logo->layout();
    QVERIFY(frame);
    check_row(frame, 0, QMargins());
    QCOMPARE(frame->count(), 1);
    QWidget *header = widget_at(frame, 0);
    QVERIFY(header);
    QCOMPARE(header->objectName(), QString("header"));
    QCOMPARE(header->styleSheet(), QString(header_sheet));

    const QLayout *row = header->layout();
    QVERIFY(row);
    check_row(row, 4, QMargins(0, 5, 20, 5));
    QCOMPARE(row->count(), 5);
    QVERIFY(row->itemAt(0)->spacerItem());
    QCOMPARE(row->itemAt(0)->spacerItem()->sizeHint().width(), 300);
    QCOMPARE(widget_at(row, 1), window->button_fix_time);
    QCOMPARE(widget_at(row, 2), window->button_undo);
    check_stretch(row, 3);
    const QWidget *logo = widget_at(row, 4);
    QVERIFY(logo);
    QCOMPARE(logo->styleSheet(), QString(logo_sheet));
    QCOMPARE(logo->minimumSize(), QSize(216, 48));
    QCOMPARE(logo->maximumSize(), QSize(216, 48));
}

void test_main_window_buttons::header_shows_its_picture_and_logo()
{
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    QCOMPARE(window->ui->widget_logo->height(), 66);
    QVERIFY(window->button_fix_time->mapTo(window->ui->widget_logo, QPoint()).x() >= 300);
    const QWidget *logo = widget_at(widget_at(window->ui->widget_logo->layout(), 0)->layout(), 4);
    const QPoint logo_corner = logo->mapTo(window->ui->widget_logo, QPoint());
    QCOMPARE(logo_corner.x() + 216 + 20, window->width());

    const QImage shown = window->ui->widget_logo->grab().toImage();
    QImage expected(":/images/head_medium_dark_without_shadow.png");
    const QRect left(0, 0, 290, 60);
    QCOMPARE(difference(shown.copy(left), expected.copy(left)), QString());
    QPainter(&expected).drawImage(logo_corner, QImage(":/images/logo_small.png"));
    const QRect place(logo_corner, QSize(216, 48));
    QCOMPARE(difference(shown.copy(place), expected.copy(place)), QString());
}

void test_main_window_buttons::controls_are_in_the_middle()
{
    const QLayout *controls = window->ui->dropper_controls->layout();
    QVERIFY(controls);
    check_row(controls, 4, QMargins(12, 0, 12, 0));
    QCOMPARE(controls->count(), 4);
    check_stretch(controls, 0);
    QCOMPARE(widget_at(controls, 1), window->button_load_images);
    QCOMPARE(widget_at(controls, 2), window->button_reset);
    check_stretch(controls, 3);
}

void test_main_window_buttons::drop_area_shows_the_picture_of_its_language_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("language");
    // clang-format off
    QTest::newRow("English")                       << "en" << "en";
    QTest::newRow("German")                        << "de" << "de";
    QTest::newRow("nothing stored: the system's")  << ""   << "en";
    QTest::newRow("a bad language has no picture") << "xx" << "xx";
    // clang-format on
}

void test_main_window_buttons::drop_area_shows_the_picture_of_its_language()
{
    QFETCH(QString, stored);
    QFETCH(QString, language);
    if (!stored.isEmpty())
        QSettings().setValue("lang", stored);
    MainWindow other(nullptr);
    QCOMPARE(other.ui->widget->styleSheet(), QString(drop_sheet).arg(language));
    other.show();
    QVERIFY(QTest::qWaitForWindowExposed(&other));
    const QImage shown = other.ui->widget->grab().toImage();
    const QImage picture(":/images/drop_images_here_" + language + ".png");
    QImage expected(shown.size(), QImage::Format_RGB32);
    expected.fill(Qt::black);
    QPainter painter(&expected);
    const QRect place = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignHCenter | Qt::AlignBottom,
                                            picture.size(), shown.rect());
    painter.drawImage(place.topLeft(), picture);
    painter.end();
    // Below the load and clear buttons.
    const QRect lower_part(0, shown.height() - 94, shown.width(), 94);
    QCOMPARE(difference(shown.copy(lower_part), expected.copy(lower_part)), QString());
}

void test_main_window_buttons::time_fields_have_the_tooltip()
{
    const QString tooltip = "Change the timestamps of the photos by this value (positive and "
                            "negative values can be used)";
    const QWidget *panel = window->findChild<QWidget *>("widget_time_adjust");
    QVERIFY(panel);
    const QList<orv::lineedit *> fields = panel->findChildren<orv::lineedit *>();
    const QList<QLabel *> labels = panel->findChildren<QLabel *>();
    QCOMPARE(fields.size(), 7);
    QCOMPARE(labels.size(), 7);
    for (const orv::lineedit *field : fields)
        QCOMPARE(field->toolTip(), tooltip);
    for (const QLabel *label : labels)
        QCOMPARE(label->toolTip(), tooltip);
}

KELVRA_PROGRAM_TEST_MAIN(test_main_window_buttons)
#include "test_main_window_buttons.moc"
