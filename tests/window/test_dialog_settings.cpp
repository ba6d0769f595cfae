// SPDX-License-Identifier: GPL-3.0-or-later

#include "bracketed_texts.h"
#include "dialog_settings.h"
#include "german_catalogues.h"
#include "grid_place.h"
#include "orv/combobox.h"
#include "orv/panel.h"
#include "program_test_main.h"
#include "startup/language_setting.h"
#include "when_modal.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QDir>
#include <QFile>
#include <QGridLayout>
#include <QLabel>

#include <functional>

using pick = std::function<void(orv::combobox &, int)>;
Q_DECLARE_METATYPE(pick)

namespace
{

constexpr int german_row = 0;
constexpr int english_row = 1;

orv::combobox *box_of(const QDialog &dialog)
{
    const auto boxes = dialog.findChildren<orv::combobox *>();
    if (boxes.size() != 1)
        qFatal("the dialog has %d combo boxes", boxes.size());
    return boxes.first();
}

QGridLayout *grid_of(const QWidget *widget)
{
    auto *grid = qobject_cast<QGridLayout *>(widget->layout());
    if (!grid)
        qFatal("the widget has no grid");
    return grid;
}

/// The widget inside the frame of the dialog's panel.
QWidget *content_of(const QDialog &dialog)
{
    const auto *panel = dialog.findChild<orv::panel *>();
    const auto *frame = panel ? panel->findChild<QWidget *>("orv--panel") : nullptr;
    if (!frame)
        qFatal("the dialog has no panel");
    return frame->layout()->itemAt(0)->widget();
}

/// The stored language; null where the key is missing.
QString stored_language()
{
    const QSettings settings;
    return settings.contains("lang") ? settings.value("lang").toString() : QString();
}

/// @param language  null for a missing key
void store_language(const QString &language)
{
    if (!language.isNull())
        QSettings().setValue("lang", language);
}

/// Runs the dialog as its caller does, runs `steps` in it, then closes it.
void run_dialog(const std::function<void(dialog_settings &)> &steps)
{
    const when_modal<dialog_settings> user([&steps](dialog_settings &dialog) {
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        steps(dialog);
    });
    dialog_settings(nullptr).exec();
    QVERIFY(user.answered());
}

void pick_by_arrow(orv::combobox &box, int row)
{
    QCOMPARE(QApplication::focusWidget(), &box);
    QTest::keyClick(&box, row > box.currentIndex() ? Qt::Key_Down : Qt::Key_Up);
}

void pick_by_letter(orv::combobox &box, int row)
{
    QTest::keyClicks(&box, box.itemText(row).left(1));
}

/// Opens the list with a key: after a mouse press Qt waits for a double click.
void open_list(orv::combobox &box)
{
    QTest::keyClick(&box, Qt::Key_Space);
    QTRY_VERIFY(box.view()->isVisible());
}

void pick_in_list_by_key(orv::combobox &box, int row)
{
    open_list(box);
    QTest::keyClick(box.view(), row > box.currentIndex() ? Qt::Key_Down : Qt::Key_Up);
    QTest::keyClick(box.view(), Qt::Key_Return);
    QTRY_VERIFY(!box.view()->isVisible());
}

void pick_in_list_by_mouse(orv::combobox &box, int row)
{
    open_list(box);
    QWidget *viewport = box.view()->viewport();
    const QPoint place = box.view()->visualRect(box.model()->index(row, 0)).center();
    QVERIFY(viewport->rect().contains(place));
    QTest::mouseMove(viewport, place);
    QTRY_COMPARE(box.view()->currentIndex().row(), row);
    QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier, place);
    QTRY_VERIFY(!box.view()->isVisible());
}

}  // namespace

class test_dialog_settings : public QObject
{
    Q_OBJECT

private slots:
    void init() { clear_settings(); }
    void dialog_has_its_title_and_parent();
    void frame_has_no_help_button();
    void panel_fills_the_dialog();
    void content_is_in_its_grid();
    void label_is_before_the_box();
    void box_has_its_sheet_and_sizes();
    void box_lists_the_languages();
    void texts_are_german_with_the_catalogue();
    void names_of_languages_arent_translated();
    void dialog_is_wider_than_its_content_needs();
    void dialog_cant_be_resized();
    void dialog_has_no_buttons_of_its_own();
    void shows_the_current_language_data();
    void shows_the_current_language();
    void opening_and_closing_stores_nothing_data();
    void opening_and_closing_stores_nothing();
    void pick_is_stored_immediately_data();
    void pick_is_stored_immediately();
    void picking_back_stores_again();
    void picking_the_current_one_stores_nothing_data();
    void picking_the_current_one_stores_nothing();
    void pick_replaces_an_unknown_language();
    void pick_is_in_the_file_after_the_dialog();
    void failed_write_goes_unnoticed();
};

void test_dialog_settings::dialog_has_its_title_and_parent()
{
    QWidget parent;
    const dialog_settings dialog(&parent);
    QCOMPARE(dialog.windowTitle(), QString("Settings"));
    QCOMPARE(dialog.parentWidget(), &parent);
}

void test_dialog_settings::frame_has_no_help_button()
{
    const QDialog plain;
    QVERIFY(plain.windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
    const dialog_settings dialog(nullptr);
    QCOMPARE(dialog.windowFlags(), plain.windowFlags() & ~Qt::WindowContextHelpButtonHint);
}

void test_dialog_settings::panel_fills_the_dialog()
{
    const dialog_settings dialog(nullptr);
    QGridLayout *grid = grid_of(&dialog);
    QCOMPARE(grid->contentsMargins(), QMargins());
    QCOMPARE(grid->horizontalSpacing(), 0);
    QCOMPARE(grid->verticalSpacing(), 0);
    QCOMPARE(grid->count(), 1);
    auto *panel = qobject_cast<orv::panel *>(grid->itemAt(0)->widget());
    QVERIFY(panel);
    QCOMPARE(place_in(grid, panel), QVector<int>({0, 0, 1, 1}));
    QCOMPARE(panel->styleSheet(), QString("#orv--panel {border-style:solid; border-width:3px; "
                                          "border-image:url(:/gui/panel/border.png) 3 stretch;}"));
}

void test_dialog_settings::content_is_in_its_grid()
{
    const dialog_settings dialog(nullptr);
    const QWidget *content = content_of(dialog);
    QCOMPARE(content->metaObject()->className(), "QWidget");
    const QGridLayout *grid = grid_of(content);
    QCOMPARE(grid->contentsMargins(), QMargins(10, 10, 10, 10));
    QCOMPARE(grid->horizontalSpacing(), 4);
    QCOMPARE(grid->verticalSpacing(), 8);
    QCOMPARE(grid->count(), 2);
}

void test_dialog_settings::label_is_before_the_box()
{
    const dialog_settings dialog(nullptr);
    auto *label = dialog.findChild<QLabel *>();
    QVERIFY(label);
    QCOMPARE(label->text(), QString("Language:"));
    QGridLayout *grid = grid_of(content_of(dialog));
    QCOMPARE(place_in(grid, label), QVector<int>({0, 0, 1, 1}));
    QCOMPARE(place_in(grid, box_of(dialog)), QVector<int>({0, 1, 1, 1}));
}

void test_dialog_settings::box_has_its_sheet_and_sizes()
{
    const dialog_settings dialog(nullptr);
    const orv::combobox *box = box_of(dialog);
    QCOMPARE(box->styleSheet(), QString(orv::combobox::sheet));
    QCOMPARE(box->maxVisibleItems(), 5);
    QCOMPARE(box->minimumWidth(), 100);
}

void test_dialog_settings::box_lists_the_languages()
{
    const dialog_settings dialog(nullptr);
    const orv::combobox *box = box_of(dialog);
    QStringList texts;
    QVariantList data;
    for (int row = 0; row < box->count(); ++row) {
        texts << box->itemText(row);
        data << box->itemData(row);
        QVERIFY(box->itemIcon(row).isNull());
    }
    QCOMPARE(texts, QStringList({"Deutsch", "English"}));
    QCOMPARE(data, QVariantList({"de", "en"}));
}

void test_dialog_settings::texts_are_german_with_the_catalogue()
{
    const german_catalogues german;
    const dialog_settings dialog(nullptr);
    QCOMPARE(dialog.windowTitle(), QString("Einstellungen"));
    QCOMPARE(dialog.findChild<QLabel *>()->text(), QString("Sprache:"));
}

void test_dialog_settings::names_of_languages_arent_translated()
{
    const bracketed_texts translation;
    const dialog_settings dialog(nullptr);
    QCOMPARE(dialog.windowTitle(), QString("[Settings]"));
    QCOMPARE(box_of(dialog)->itemText(german_row), QString("Deutsch"));
    QCOMPARE(box_of(dialog)->itemText(english_row), QString("English"));
}

/// Tries fonts of several sizes, since not every width has a fraction to cut off.
void test_dialog_settings::dialog_is_wider_than_its_content_needs()
{
    const QFont font_before = QApplication::font();
    double greatest_fraction = 0;
    for (int font_px = 9; font_px < 19; ++font_px) {
        QFont font = font_before;
        font.setPixelSize(font_px);
        QApplication::setFont(font);
        const dialog_settings dialog(nullptr);
        const double wider = dialog.sizeHint().width() * 1.2;
        const int whole_px = static_cast<int>(wider);
        greatest_fraction = qMax(greatest_fraction, wider - whole_px);
        QCOMPARE(dialog.size(), QSize(whole_px, dialog.sizeHint().height()));
        QCOMPARE(dialog.minimumSize(), dialog.size());
        QCOMPARE(dialog.maximumSize(), dialog.size());
    }
    QApplication::setFont(font_before);
    QVERIFY(greatest_fraction > 0.5);
}

void test_dialog_settings::dialog_cant_be_resized()
{
    run_dialog([](dialog_settings &dialog) {
        const QSize size = dialog.size();
        dialog.resize(size * 2);
        QCOMPARE(dialog.size(), size);
        dialog.resize(1, 1);
        QCOMPARE(dialog.size(), size);
    });
}

void test_dialog_settings::dialog_has_no_buttons_of_its_own()
{
    const dialog_settings dialog(nullptr);
    QVERIFY(dialog.findChildren<QAbstractButton *>().isEmpty());
}

void test_dialog_settings::shows_the_current_language_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("shown");
    // clang-format off
    QTest::newRow("German")                    << "de"      << "Deutsch";
    QTest::newRow("English")                   << "en"      << "English";
    QTest::newRow("none, on a German system")  << QString() << "Deutsch";
    QTest::newRow("empty, on a German system") << ""        << "Deutsch";
    QTest::newRow("without a catalogue")       << "fr"      << "English";
    QTest::newRow("not exactly German")        << "de_DE"   << "English";
    QTest::newRow("German in capitals")        << "DE"      << "English";
    // clang-format on
}

void test_dialog_settings::shows_the_current_language()
{
    QFETCH(QString, stored);
    QFETCH(QString, shown);
    store_language(stored);
    const dialog_settings dialog(nullptr);
    QCOMPARE(box_of(dialog)->currentText(), shown);
}

void test_dialog_settings::opening_and_closing_stores_nothing_data()
{
    QTest::addColumn<QString>("stored");
    QTest::newRow("none") << QString();
    QTest::newRow("empty") << "";
    QTest::newRow("German") << "de";
    QTest::newRow("English") << "en";
    QTest::newRow("without a catalogue") << "fr";
}

void test_dialog_settings::opening_and_closing_stores_nothing()
{
    QFETCH(QString, stored);
    store_language(stored);
    const QStringList keys = QSettings().allKeys();
    run_dialog([](dialog_settings &dialog) { dialog.close(); });
    QCOMPARE(QSettings().allKeys(), keys);
    QCOMPARE(stored_language(), stored);
}

void test_dialog_settings::pick_is_stored_immediately_data()
{
    QTest::addColumn<pick>("choose");
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("after");
    const struct {
        const char *name;
        void (*choose)(orv::combobox &, int);
    } ways[] = {{"an arrow", pick_by_arrow},
                {"its letter", pick_by_letter},
                {"a key in the list", pick_in_list_by_key},
                {"a click in the list", pick_in_list_by_mouse}};
    for (const auto &way : ways) {
        QTest::addRow("German by %s", way.name) << pick(way.choose) << "en" << german_row << "de";
        QTest::addRow("English by %s", way.name) << pick(way.choose) << "de" << english_row << "en";
    }
}

void test_dialog_settings::pick_is_stored_immediately()
{
    QFETCH(pick, choose);
    QFETCH(QString, before);
    QFETCH(int, row);
    QFETCH(QString, after);
    store_language(before);
    run_dialog([&](dialog_settings &dialog) {
        choose(*box_of(dialog), row);
        QCOMPARE(box_of(dialog)->currentIndex(), row);
        QVERIFY(dialog.isVisible());
        QCOMPARE(stored_language(), after);
    });
    QCOMPARE(stored_language(), after);
    QCOMPARE(QSettings().allKeys(), QStringList("lang"));
}

/// The key is removed between the two picks, so that the second one is noticed too.
void test_dialog_settings::picking_back_stores_again()
{
    store_language("en");
    const QString before = language_setting("lang");
    run_dialog([](dialog_settings &dialog) {
        pick_in_list_by_key(*box_of(dialog), german_row);
        QCOMPARE(stored_language(), QString("de"));
        QSettings().remove("lang");
        pick_in_list_by_key(*box_of(dialog), english_row);
        QCOMPARE(stored_language(), QString("en"));
    });
    QCOMPARE(language_setting("lang"), before);
}

void test_dialog_settings::picking_the_current_one_stores_nothing_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("row");
    QTest::newRow("the system's") << QString() << german_row;
    QTest::newRow("without a catalogue") << "fr" << english_row;
}

void test_dialog_settings::picking_the_current_one_stores_nothing()
{
    QFETCH(QString, stored);
    QFETCH(int, row);
    store_language(stored);
    run_dialog([row](dialog_settings &dialog) {
        QCOMPARE(box_of(dialog)->currentIndex(), row);
        pick_in_list_by_mouse(*box_of(dialog), row);
    });
    QCOMPARE(stored_language(), stored);
}

void test_dialog_settings::pick_replaces_an_unknown_language()
{
    store_language("fr");
    run_dialog([](dialog_settings &dialog) {
        QCOMPARE(box_of(dialog)->currentText(), QString("English"));
        pick_in_list_by_mouse(*box_of(dialog), german_row);
        QCOMPARE(stored_language(), QString("de"));
    });
    QCOMPARE(stored_language(), QString("de"));
}

void test_dialog_settings::pick_is_in_the_file_after_the_dialog()
{
    run_dialog([](dialog_settings &dialog) { pick_by_arrow(*box_of(dialog), english_row); });
    QFile file(QSettings().fileName());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains("lang=en\n"));
}

/// A folder in the place of the file can't be written by anybody.
void test_dialog_settings::failed_write_goes_unnoticed()
{
    const QString file = QSettings().fileName();
    QFile::remove(file);
    QVERIFY(QDir().mkpath(file));
    run_dialog([](dialog_settings &dialog) {
        pick_by_arrow(*box_of(dialog), english_row);
        QSettings settings;
        settings.sync();
        QCOMPARE(settings.status(), QSettings::AccessError);
        QCOMPARE(box_of(dialog)->currentIndex(), english_row);
        QCOMPARE(QApplication::activeModalWidget(), &dialog);
    });
    QVERIFY(QDir().rmdir(file));
}

/// Runs on a German system, so that the default (German) differs from what the box shows for a
/// language that it doesn't know (English).
int main(int argc, char **argv)
{
    qputenv("LC_ALL", "de_DE.UTF-8");
    return run_program_test<test_dialog_settings>(argc, argv);
}

#include "test_dialog_settings.moc"
