// SPDX-License-Identifier: GPL-3.0-or-later

#include "program_test_main.h"
#include "window_actions.h"

#include <QAction>
#include <QLibraryInfo>
#include <QMenu>
#include <QPointer>
#include <QTranslator>

#include <algorithm>
#include <memory>

/// The context menu of a shift field.
class test_field_menu : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data();
    void init();
    void cleanup();
    void menu_has_qts_entries();
    void menu_has_surface_and_border_of_the_skin();
    void entry_under_the_mouse_is_highlighted();
    void disabled_entry_looks_disabled();
    void entry_does_what_it_says();

private:
    void point_at(QAction *entry);
    QImage shown(QAction *entry);

    std::unique_ptr<QTranslator> german;  ///< null in English
    std::unique_ptr<MainWindow> window;
    orv::lineedit *field = nullptr;
    QPointer<QMenu> menu;  ///< deletes itself when it closes
};

namespace
{

const QColor surface(47, 47, 47);
const QColor text_colour(198, 213, 210);
const QColor disabled_colour(100, 100, 100);
const QColor border_colour(99, 99, 99);

enum entry { undo, redo, cut, copy };

/// The entries in order, without the separators.
QList<QAction *> entries_of(const QMenu &menu)
{
    QList<QAction *> entries = menu.actions();
    entries.erase(std::remove_if(entries.begin(), entries.end(),
                                 [](const QAction *action) { return action->isSeparator(); }),
                  entries.end());
    return entries;
}

/// The background of an entry, taken beside its text.
QColor background_of(const QImage &entry)
{
    return entry.pixelColor(4, entry.height() / 2);
}

/// The colour of an entry's text, on a dark background.
QColor brightest(const QImage &entry)
{
    QColor found(Qt::black);
    for (int y = 0; y < entry.height(); ++y) {
        for (int x = 0; x < entry.width(); ++x) {
            const QColor colour = entry.pixelColor(x, y);
            if (qGray(colour.rgb()) > qGray(found.rgb()))
                found = colour;
        }
    }
    return found;
}

void check_disabled(const QImage &entry)
{
    QCOMPARE(background_of(entry), surface);
    const int grey = qGray(brightest(entry).rgb());
    QVERIFY2(grey > 70 && grey <= qGray(disabled_colour.rgb()), qPrintable(QString::number(grey)));
}

}  // namespace

/// The second style lets the mouse reach disabled entries too.
void test_field_menu::initTestCase_data()
{
    QTest::addColumn<bool>("in_german");
    QTest::addColumn<QString>("style");
    QTest::newRow("English") << false << "fusion";
    QTest::newRow("German") << true << "windows";
}

/// The field has typed text that is selected, so that some entries are enabled and others aren't.
void test_field_menu::init()
{
    QFETCH_GLOBAL(bool, in_german);
    QFETCH_GLOBAL(QString, style);
    QApplication::setStyle(style);
    if (in_german) {
        german = std::make_unique<QTranslator>();
        QVERIFY(german->load("qt_de", QLibraryInfo::location(QLibraryInfo::TranslationsPath)));
        QCoreApplication::installTranslator(german.get());
    }
    clear_settings();
    window = open_window();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    field = shift_field(*window, "hour");
    field->setFocus();
    QTest::keyClicks(field, "12");
    QTest::keyClick(field, Qt::Key_Home, Qt::ShiftModifier);
    QTest::mouseClick(window->windowHandle(), Qt::RightButton, Qt::NoModifier,
                      field->mapTo(window.get(), field->rect().center()));
    menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QVERIFY(QTest::qWaitForWindowExposed(menu));
}

void test_field_menu::cleanup()
{
    if (menu)
        menu->close();
    close_window(window);
    german.reset();
}

void test_field_menu::menu_has_qts_entries()
{
    QFETCH_GLOBAL(bool, in_german);
    QStringList texts;
    for (QAction *entry : entries_of(*menu))
        texts << entry->text().remove('&').section('\t', 0, 0);
    const QStringList english = {"Undo", "Redo", "Cut", "Copy", "Paste", "Delete", "Select All"};
    const QStringList translated = {"Rückgängig", "Wiederherstellen", "Ausschneiden",   "Kopieren",
                                    "Einfügen",   "Löschen",          "Alles auswählen"};
    QCOMPARE(texts, in_german ? translated : english);
}

void test_field_menu::menu_has_surface_and_border_of_the_skin()
{
    const QImage picture = menu->grab().toImage();
    QCOMPARE(picture.pixelColor(picture.width() / 2, 0), border_colour);
    QCOMPARE(picture.pixelColor(0, picture.height() / 2), border_colour);
    const QImage entry = shown(entries_of(*menu).at(cut));
    QCOMPARE(background_of(entry), surface);
    QVERIFY(qGray(brightest(entry).rgb()) > 160);
}

void test_field_menu::entry_under_the_mouse_is_highlighted()
{
    const QList<QAction *> entries = entries_of(*menu);
    point_at(entries.at(copy));
    QTRY_COMPARE(menu->activeAction(), entries.at(copy));
    QCOMPARE(background_of(shown(entries.at(copy))), text_colour);
    QCOMPARE(background_of(shown(entries.at(cut))), surface);
    point_at(entries.at(cut));
    QTRY_COMPARE(menu->activeAction(), entries.at(cut));
    QCOMPARE(background_of(shown(entries.at(cut))), text_colour);
    QCOMPARE(background_of(shown(entries.at(copy))), surface);
}

void test_field_menu::disabled_entry_looks_disabled()
{
    const QList<QAction *> entries = entries_of(*menu);
    QVERIFY(!entries.at(redo)->isEnabled());
    check_disabled(shown(entries.at(redo)));
    point_at(entries.at(undo));
    QTRY_COMPARE(menu->activeAction(), entries.at(undo));
    point_at(entries.at(redo));
    QTRY_VERIFY(menu->activeAction() != entries.at(undo));
    check_disabled(shown(entries.at(redo)));
}

void test_field_menu::entry_does_what_it_says()
{
    QAction *entry = entries_of(*menu).at(undo);
    point_at(entry);
    QTest::mouseClick(menu->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      menu->actionGeometry(entry).center());
    QTRY_VERIFY(!QApplication::activePopupWidget());
    QCOMPARE(field->text(), QString());
}

/// Moves there in two steps: a menu ignores the first move after it has opened.
void test_field_menu::point_at(QAction *entry)
{
    const QRect place = menu->actionGeometry(entry);
    QTest::mouseMove(menu->windowHandle(), place.center() - QPoint(place.width() / 4, 0));
    QTest::mouseMove(menu->windowHandle(), place.center());
}

QImage test_field_menu::shown(QAction *entry)
{
    return menu->grab(menu->actionGeometry(entry)).toImage();
}

KELVRA_PROGRAM_TEST_MAIN(test_field_menu)
#include "test_field_menu.moc"
