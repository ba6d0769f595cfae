// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialog_settings.h"
#include "german_catalogues.h"
#include "orv/clickable_label.h"
#include "orv/combobox.h"
#include "orv/dialog_about.h"
#include "orv/message_box.h"
#include "program_test_main.h"
#include "time_adjustment.h"
#include "when_modal.h"
#include "window_actions.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTableView>

#include <algorithm>
#include <iterator>

namespace
{

const QStringList field_names = {"lineedit_year",    "lineedit_month",  "lineedit_day",
                                 "lineedit_hour",    "lineedit_minute", "lineedit_second",
                                 "lineedit_timezone"};
const QStringList format_names = {"rb_ddmmyyyy_slash", "rb_ddmmyyyy_dot", "rb_ddmmyyyy_dash",
                                  "rb_yyyymmdd_slash", "rb_yyyymmdd_dot", "rb_yyyymmdd_dash",
                                  "rb_mmddyyyy_slash", "rb_hhmmss",       "rb_hhmm"};

/// What a screen reader calls the widget.
QString name_of(QWidget *widget)
{
    const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(widget);
    return accessible ? accessible->text(QAccessible::Name) : QString();
}

QStringList names_of(const QList<QWidget *> &widgets)
{
    QStringList names;
    for (QWidget *widget : widgets)
        names << name_of(widget);
    return names;
}

/// The names of the labels that a screen reader reads out with the widget.
QStringList labels_of(QWidget *widget)
{
    QStringList labels;
    const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(widget);
    for (const auto &relation : accessible->relations(QAccessible::Label))
        labels << relation.first->text(QAccessible::Name);
    return labels;
}

bool is_control(const QWidget *widget)
{
    return qobject_cast<const QAbstractButton *>(widget) ||
           qobject_cast<const QLineEdit *>(widget) || qobject_cast<const QComboBox *>(widget) ||
           qobject_cast<const orv::clickable_label *>(widget);
}

/// Everything on the screen that can be pressed or filled in. Controls that Qt's widgets have for
/// their own use, such as the button in the corner of a table, are hidden in this window.
QList<QWidget *> controls_of(const QWidget &window)
{
    QList<QWidget *> controls = window.findChildren<QWidget *>();
    const auto others = std::remove_if(controls.begin(), controls.end(), [](QWidget *widget) {
        return !is_control(widget) || !widget->isVisible();
    });
    controls.erase(others, controls.end());
    return controls;
}

/// A placeholder such as 0 isn't a name: a name has letters.
void check_names(const QWidget &window, int control_count)
{
    static const QRegularExpression letter("\\p{L}");
    const QStringList names = names_of(controls_of(window));
    QCOMPARE(names.size(), control_count);
    for (const QString &name : names)
        QVERIFY2(letter.match(name).hasMatch(), qPrintable(names.join(", ")));
}

/// Runs `look` on the dialog that `open` opens.
template <class Dialog>
void look_at(const std::function<void()> &open, const std::function<void(Dialog &)> &look)
{
    const when_modal<Dialog> user(look);
    open();
    QVERIFY(user.answered());
}

/// A question as the program asks it.
void ask()
{
    orv::message_box::question(nullptr, MainWindow::tr("Continue?"), "Text",
                               MainWindow::tr("Continue"), MainWindow::tr("Abort"), 0);
}

/// What a screen reader reads out from the texts in the window, in order.
QString read_texts(const QAccessibleInterface &accessible)
{
    QString texts;
    for (int i = 0; i < accessible.childCount(); ++i) {
        const QAccessibleInterface &child = *accessible.child(i);
        if (child.state().invisible)
            continue;
        if (child.role() == QAccessible::StaticText)
            texts += child.text(QAccessible::Name) + '\n';
        texts += read_texts(child);
    }
    return texts;
}

/// The widgets that the tab key can reach, in order, starting with this one.
QStringList tab_chain(QWidget *first)
{
    QStringList chain;
    QWidget *widget = first;
    do {
        if (widget->focusPolicy() & Qt::TabFocus)
            chain << widget->objectName();
        widget = widget->nextInFocusChain();
    } while (widget != first);
    return chain;
}

}  // namespace

/// What screen readers and keyboard users get, in each language.
class test_accessible_names : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data();
    void init();
    void cleanup();
    void nothing_in_the_window_is_nameless();
    void nothing_in_a_dialog_is_nameless();
    void buttons_are_named_by_their_tooltips();
    void screen_reader_can_press_a_button();
    void fields_are_named_by_the_labels_above();
    void formats_are_named_by_their_texts();
    void language_box_belongs_to_its_label();
    void answers_are_named_by_their_texts();
    void text_of_a_box_is_read_data();
    void text_of_a_box_is_read();
    void link_is_named_by_its_text();
    void progress_is_named_by_its_label();
    void tab_reaches_only_fields_and_formats();
    void tab_goes_round_the_window_data();
    void tab_goes_round_the_window();
    void mouse_does_not_move_the_keyboard_focus();

private:
    template <class Text>
    Text in_language(const Text &english, const Text &german) const
    {
        return catalogues ? german : english;
    }

    QList<QWidget *> widgets(const QStringList &object_names) const;

    std::unique_ptr<german_catalogues> catalogues;  ///< null in English
    std::unique_ptr<MainWindow> window;
};

void test_accessible_names::initTestCase_data()
{
    QTest::addColumn<bool>("in_german");
    QTest::newRow("English") << false;
    QTest::newRow("German") << true;
}

void test_accessible_names::init()
{
    QFETCH_GLOBAL(bool, in_german);
    if (in_german)
        catalogues = std::make_unique<german_catalogues>();
    clear_settings();
    window = open_window();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
}

void test_accessible_names::cleanup()
{
    close_window(window);
    catalogues.reset();
}

/// Seven buttons, seven fields, nine formats.
void test_accessible_names::nothing_in_the_window_is_nameless()
{
    check_names(*window, 23);
}

void test_accessible_names::nothing_in_a_dialog_is_nameless()
{
    look_at<dialog_settings>([this] { click(window->button_settings); },
                             [](const dialog_settings &dialog) { check_names(dialog, 1); });
    look_at<orv::dialog_about>([this] { click(window->button_about); },
                               [](const orv::dialog_about &dialog) { check_names(dialog, 1); });
    look_at<QMessageBox>(ask, [](const QMessageBox &box) { check_names(box, 2); });
}

void test_accessible_names::buttons_are_named_by_their_tooltips()
{
    const QList<QWidget *> buttons = {window->button_settings, window->button_about,
                                      window->button_help,     window->button_fix_time,
                                      window->button_undo,     window->button_load_images,
                                      window->button_reset};
    const QStringList english = {"Change application settings",
                                 "Show information about the application",
                                 "Show documentation, shortcuts and usage information",
                                 "Apply changes to the timestamps of the images",
                                 "Undo the last set of timestamp changes",
                                 "Load images",
                                 "Clear list of loaded images"};
    const QStringList german = {"Anwendungseinstellungen ändern",
                                "Informationen über die Anwendung anzeigen",
                                "Informationen zur Benutzung des Programms anzeigen",
                                "Änderungen an den Zeitstempeln in die Fotos speichern",
                                "Letzte Änderungen an den Zeitstempeln rückgängig machen",
                                "Bilder Laden",
                                "Liste geladener Bilder leeren"};
    QCOMPARE(names_of(buttons), in_language(english, german));
}

/// The keyboard can't reach the buttons.
void test_accessible_names::screen_reader_can_press_a_button()
{
    QTest::keyClicks(shift_field(*window, "hour"), "1");
    QAccessibleInterface *button = QAccessible::queryAccessibleInterface(window->button_reset);
    button->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QTRY_COMPARE(shift_field(*window, "hour")->text(), QString());
}

/// Typed text becomes the value; the name stays.
void test_accessible_names::fields_are_named_by_the_labels_above()
{
    const QList<QWidget *> fields = widgets(field_names);
    const QStringList expected = in_language(
        QStringList({"Year", "Month", "Day", "Hour", "Minute", "Second", "Timezone (h)"}),
        QStringList({"Jahr", "Monat", "Tag", "Stunde", "Minute", "Sekunde", "Zeitzone (Std)"}));
    QCOMPARE(names_of(fields), expected);
    QStringList labels;
    for (QWidget *field : fields) {
        QTest::keyClicks(field, "1");
        labels << labels_of(field);
    }
    QCOMPARE(labels, expected);
    QCOMPARE(names_of(fields), expected);
}

void test_accessible_names::formats_are_named_by_their_texts()
{
    const QStringList english = {"DD/MM/YYYY", "DD.MM.YYYY", "DD-MM-YYYY",
                                 "YYYY/MM/DD", "YYYY.MM.DD", "YYYY-MM-DD",
                                 "MM/DD/YYYY", "hh:mm:ss",   "hh:mm"};
    // The last one says seconds where minutes are meant, as on the screen.
    const QStringList german = {"TT/MM/JJJJ", "TT.MM.JJJJ",  "TT-MM-JJJJ",
                                "JJJJ/MM/TT", "JJJJ.MM.TT",  "JJJJ-MM-TT",
                                "MM/TT/JJJJ", "Std:Min:Sek", "Std:Sek"};
    QCOMPARE(names_of(widgets(format_names)), in_language(english, german));
}

/// On this platform Qt names a combo box after its current choice; the label tells its purpose.
void test_accessible_names::language_box_belongs_to_its_label()
{
    const QString expected = in_language<QString>("Language:", "Sprache:");
    look_at<dialog_settings>([this] { click(window->button_settings); },
                             [&expected](const dialog_settings &dialog) {
                                 auto *box = dialog.findChild<orv::combobox *>();
                                 QVERIFY(box);
                                 QCOMPARE(labels_of(box), QStringList(expected));
                             });
}

void test_accessible_names::answers_are_named_by_their_texts()
{
    const QStringList expected =
        in_language(QStringList({"Continue", "Abort"}), QStringList({"Fortfahren", "Abbrechen"}));
    look_at<QMessageBox>(ask, [&expected](const QMessageBox &box) {
        QCOMPARE(names_of({box.button(QMessageBox::Yes), box.button(QMessageBox::No)}), expected);
    });
}

void test_accessible_names::text_of_a_box_is_read_data()
{
    QTest::addColumn<int>("names");
    QTest::newRow("box that fits") << 2;
    QTest::newRow("box that scrolls") << 200;
}

/// A box that scrolls has a separate label for the part that doesn't scroll.
void test_accessible_names::text_of_a_box_is_read()
{
    QFETCH(int, names);
    const QString text = "Names:\n" + QString("/a/name.JPG\n").repeated(names) + "\n A question";
    look_at<QMessageBox>(
        [&text] {
            orv::message_box::question(nullptr, MainWindow::tr("Continue?"), text,
                                       QMessageBox::Yes | QMessageBox::No, 0);
        },
        [&text](QMessageBox &box) {
            const QString read = read_texts(*QAccessible::queryAccessibleInterface(&box));
            QCOMPARE(read.split('\n', Qt::SkipEmptyParts), text.split('\n', Qt::SkipEmptyParts));
        });
}

void test_accessible_names::link_is_named_by_its_text()
{
    const QString expected = in_language<QString>(
        "Click here for 3rd party library information",
        "Klicke hier um Informationen über Bibliotheken von Drittanbietern zu erhalten");
    look_at<orv::dialog_about>([this] { click(window->button_about); },
                               [&expected](const orv::dialog_about &dialog) {
                                   QCOMPARE(names_of(controls_of(dialog)), QStringList(expected));
                               });
}

void test_accessible_names::progress_is_named_by_its_label()
{
    const QList<QWidget *> bars = {window->progress_fix->findChild<QProgressBar *>(),
                                   window->progress_load->findChild<QProgressBar *>()};
    QCOMPARE(names_of(bars),
             in_language(QStringList({"Fixing time", "Loading files"}),
                         QStringList({"Ändere Zeitinformationen", "Lade Dateien"})));
}

/// The tab key leaves a group of radio buttons, so only the focus chain shows the order within it.
void test_accessible_names::tab_reaches_only_fields_and_formats()
{
    QCOMPARE(tab_chain(window.get()), field_names + format_names);
}

void test_accessible_names::tab_goes_round_the_window_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QStringList>("stops");
    const QStringList forwards = field_names + QStringList({"rb_ddmmyyyy_slash", "rb_hhmmss"});
    QTest::newRow("forwards") << Qt::Key_Tab << forwards + forwards;
    QStringList backwards = {"rb_hhmm", "rb_mmddyyyy_slash"};
    std::copy(field_names.crbegin(), field_names.crend(), std::back_inserter(backwards));
    QTest::newRow("backwards") << Qt::Key_Backtab << backwards + backwards;
}

/// Goes round twice, from a window without a focus. A group of radio buttons is a single stop, at
/// the end that the key comes from.
void test_accessible_names::tab_goes_round_the_window()
{
    QFETCH(Qt::Key, key);
    QFETCH(QStringList, stops);
    window->focusWidget()->clearFocus();
    QVERIFY(!QApplication::focusWidget());
    QStringList visited;
    for (int press = 0; press < stops.size(); ++press) {
        QTest::keyClick(window->windowHandle(), key);
        QVERIFY(QApplication::focusWidget());
        visited << QApplication::focusWidget()->objectName();
    }
    QCOMPARE(visited, stops);
}

void test_accessible_names::mouse_does_not_move_the_keyboard_focus()
{
    orv::lineedit *field = shift_field(*window, "hour");
    click(field);
    QWidget *button = window->button_reset;
    QWidget *label = window->ui->widget_time_adjust->findChild<QLabel *>("label_2");
    const QTableView *table = window->ui->tableView;
    for (QWidget *widget :
         {button, label, table->viewport(), table->horizontalHeader()->viewport()}) {
        click(widget);
        QCOMPARE(QApplication::focusWidget(), field);
    }
    for (const orv::button_dark *other : window->findChildren<orv::button_dark *>())
        QCOMPARE(other->focusPolicy(), Qt::NoFocus);
}

QList<QWidget *> test_accessible_names::widgets(const QStringList &object_names) const
{
    QList<QWidget *> found;
    for (const QString &name : object_names) {
        found << window->findChild<QWidget *>(name);
        if (!found.last())
            qFatal("the window has no %s", qPrintable(name));
    }
    return found;
}

KELVRA_PROGRAM_TEST_MAIN(test_accessible_names)
#include "test_accessible_names.moc"
