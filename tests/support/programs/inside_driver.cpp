// SPDX-License-Identifier: GPL-3.0-or-later
//
// Acts as the user of a program that runs outside the test: Qt loads this as a generic plugin into
// the program itself (QT_QPA_GENERIC_PLUGINS), so the program needs no change.
//
// Once the program's main window is on the screen and all its events are processed, this prints
// "shown" and runs the steps in INSIDE_DRIVER, separated by ";":
//   report      prints the style, identity and texts that the program's set-up has made
//   open PATH   sends a file-open event to the application object
//   rows        prints how many rows the table has
//   settings LANGUAGE ANSWER
//               clicks the settings button, picks the language, closes the dialog and clicks the
//               button ANSWER, "Yes" or "No", of the question that follows; prints its title
//   shift UNIT TEXT
//               types the text into the field of that unit
//   click NAME  clicks one of the window's buttons by the names below
//   choose COUNT
//               opens all files in the file dialog, once it is on the screen and lists COUNT
//               files; later steps don't wait for it
//   values BATCH
//               from now on prints each value of the progress of the batch: "load" or "fix"
//               ("fix" also stands for an undo)
//   at BATCH VALUE STEP
//               runs the step once, with the first events that are processed after the progress
//               has reached the value
//   when FILE STEP
//               runs the step once that file exists; later steps don't wait for it
//   showing STEP
//               runs the step while the window opens, before all others
//   raise NUMBER
//               sends itself the signal
//   hide | close | exit STATUS

#include <QAbstractEventDispatcher>
#include <QAbstractItemModel>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QFileOpenEvent>
#include <QGenericPlugin>
#include <QIcon>
#include <QListView>
#include <QMainWindow>
#include <QMessageBox>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QRegularExpression>
#include <QStringList>
#include <QStyle>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <functional>
#include <iostream>

namespace
{

constexpr char shown_line[] = "shown\n";

void print(const char *name, const QString &text)
{
    std::cout << name << ": " << text.toStdString() << std::endl;
}

void print_report(const QMainWindow &window)
{
    print("organisation", QCoreApplication::organizationName());
    print("application", QCoreApplication::applicationName());
    print("version", QCoreApplication::applicationVersion());
    print("high dpi",
          QString::number(QCoreApplication::testAttribute(Qt::AA_EnableHighDpiScaling)));
    print("high dpi pictures",
          QString::number(QCoreApplication::testAttribute(Qt::AA_UseHighDpiPixmaps)));
    print("OpenGL left out",
          QString::number(QCoreApplication::testAttribute(Qt::AA_ForceRasterWidgets)));
    print("time zone", qEnvironmentVariable("TZ"));
    print("icons", QIcon::themeName());
    print("sizes of the window's icon",
          QString::number(window.windowIcon().availableSizes().size()));
    print("style", QApplication::style()->metaObject()->className());
    print("wake-up delay",
          QString::number(QApplication::style()->styleHint(QStyle::SH_ToolTip_WakeUpDelay)));
    print("Qt's text", QCoreApplication::translate("QPlatformTheme", "Cancel"));
    for (const auto *button : window.findChildren<QPushButton *>())
        print("tool tip", button->toolTip());
}

/// Does in the settings dialog, and in the box that follows, what the user would do.
class settings_user
{
public:
    settings_user(const QString &language, const QString &answer)
        : language(language), answer(answer)
    {
        QObject::connect(&poll, &QTimer::timeout, &poll, [this] { look(); });
        poll.start(poll_ms);
    }

private:
    static constexpr int poll_ms = 10;

    void look()
    {
        QWidget *dialog = QApplication::activeModalWidget();
        if (auto *box = qobject_cast<QMessageBox *>(dialog))
            answer_question(*box);
        else if (dialog)
            pick_language(*dialog);
    }

    void pick_language(QWidget &dialog) const
    {
        auto *box = dialog.findChild<QComboBox *>();
        const int steps = box->findData(language) - box->currentIndex();
        for (int i = 0; i < qAbs(steps); ++i)
            QTest::keyClick(box, steps > 0 ? Qt::Key_Down : Qt::Key_Up);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    }

    void answer_question(const QMessageBox &box) const
    {
        print("question", box.windowTitle());
        const auto button = answer == "Yes" ? QMessageBox::Yes : QMessageBox::No;
        QTest::mouseClick(box.button(button), Qt::LeftButton);
    }

    const QString language;
    const QString answer;
    QTimer poll;
};

/// Where a button of the window is: none of them has a text.
struct button_place {
    const char *name;
    const char *strip;  ///< the widget that contains the button
    int from_left;
};

constexpr button_place button_places[] = {
    {"settings", "widget_info", 0},   {"about", "widget_info", 1}, {"help", "widget_info", 2},
    {"fix", "widget_logo", 0},        {"undo", "widget_logo", 1},  {"load", "dropper_controls", 0},
    {"reset", "dropper_controls", 1},
};

void click(const QMainWindow &window, const QString &name)
{
    const auto *place =
        std::find_if(std::begin(button_places), std::end(button_places),
                     [&](const button_place &button) { return button.name == name; });
    if (place == std::end(button_places))
        qFatal("no button %s", qPrintable(name));
    auto buttons = window.findChild<QWidget *>(place->strip)->findChildren<QPushButton *>();
    std::sort(buttons.begin(), buttons.end(), [](const auto *a, const auto *b) {
        return a->mapToGlobal({}).x() < b->mapToGlobal({}).x();
    });
    QTest::mouseClick(buttons.at(place->from_left), Qt::LeftButton);
}

void change_language(const QMainWindow &window, const QString &language, const QString &answer)
{
    const settings_user user(language, answer);
    click(window, "settings");
}

void type_shift(const QMainWindow &window, const QString &unit, const QString &text)
{
    QTest::keyClicks(window.findChild<QWidget *>("lineedit_" + unit), text);
}

/// Returns false, and does nothing, until a file dialog with this many files is on the screen.
bool choose_all_files(int count)
{
    auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
    if (!dialog || !dialog->windowHandle()->isExposed())
        return false;
    auto *list = dialog->findChild<QListView *>("listView");
    if (list->model()->rowCount(list->rootIndex()) != count)
        return false;
    QTest::keyClick(list, Qt::Key_A, Qt::ControlModifier);
    const auto *buttons = dialog->findChild<QDialogButtonBox *>();
    QTest::mouseClick(buttons->button(QDialogButtonBox::Open), Qt::LeftButton);
    return true;
}

/// The window makes the progress dialogs in a fixed order, which tells them apart.
const QProgressBar *progress_bar(const QMainWindow &window, const QString &batch)
{
    const auto dialogs = window.findChildren<QProgressDialog *>();
    return dialogs.at(batch == "fix" ? 0 : 1)->findChild<QProgressBar *>();
}

class driver : public QObject
{
public:
    driver() : steps(qEnvironmentVariable("INSIDE_DRIVER").split(';', Qt::SkipEmptyParts))
    {
        connect(&start, &QTimer::timeout, this, &driver::wait_for_idleness);
        start.start(0);
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *window = qobject_cast<QMainWindow *>(watched);
        if (window && event->type() == QEvent::Show) {
            qApp->removeEventFilter(this);
            for (const QString &step : steps.filter(showing))
                run(*window, step.section(' ', 1));
        }
        return false;
    }

private:
    void wait_for_idleness()
    {
        if (!main_window())
            return;
        start.stop();
        connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
                &driver::begin);
    }

    void begin()
    {
        QAbstractEventDispatcher::instance()->disconnect(this);
        // Bypasses the stream's buffer: a signal after the write would have flushed that a second
        // time.
        if (write(STDOUT_FILENO, shown_line, sizeof shown_line - 1) == -1)
            qFatal("nobody reads");
        if (!steps.isEmpty())
            QTimer::singleShot(0, this, &driver::run_steps);
    }

    void run_steps()
    {
        QMainWindow *window = main_window();
        for (const QString &step : qAsConst(steps)) {
            if (!step.contains(showing))
                run(*window, step);
        }
    }

    void run(QMainWindow &window, const QString &step)
    {
        run(window, step.section(' ', 0, 0), step.section(' ', 1));
    }

    void run(QMainWindow &window, const QString &verb, const QString &argument)
    {
        if (verb == "report")
            print_report(window);
        else if (verb == "open") {
            QFileOpenEvent event(argument);
            QCoreApplication::sendEvent(qApp, &event);
        } else if (verb == "rows")
            print("rows", QString::number(window.findChild<QTableView *>()->model()->rowCount()));
        else if (verb == "settings")
            change_language(window, argument.section(' ', 0, 0), argument.section(' ', 1));
        else if (verb == "shift")
            type_shift(window, argument.section(' ', 0, 0), argument.section(' ', 1));
        else if (verb == "click")
            click(window, argument);
        else if (verb == "choose")
            run_once([count = argument.toInt()] { return choose_all_files(count); });
        else if (verb == "values")
            print_values(window, argument);
        else if (verb == "at")
            run_at(window, argument.section(' ', 0, 0), argument.section(' ', 1, 1).toInt(),
                   argument.section(' ', 2));
        else if (verb == "when")
            run_when(window, argument.section(' ', 0, 0), argument.section(' ', 1));
        else if (verb == "raise")
            std::raise(argument.toInt());
        else if (verb == "hide")
            window.hide();
        else if (verb == "close")
            window.close();
        else if (verb == "exit")
            QCoreApplication::exit(argument.toInt());
        else
            qFatal("unknown step %s", qPrintable(verb));
    }

    void print_values(const QMainWindow &window, const QString &batch)
    {
        connect(progress_bar(window, batch), &QProgressBar::valueChanged, this,
                [batch](int value) { print(qPrintable(batch), QString::number(value)); });
    }

    void run_at(QMainWindow &window, const QString &batch, int value, const QString &step)
    {
        auto *once = new QObject(this);
        connect(progress_bar(window, batch), &QProgressBar::valueChanged, once,
                [=, &window](int now) {
                    if (now != value)
                        return;
                    delete once;
                    QTimer::singleShot(0, this, [=, &window] { run(window, step); });
                });
    }

    void run_when(QMainWindow &window, const QString &file, const QString &step)
    {
        run_once([=, &window] {
            if (!QFile::exists(file))
                return false;
            run(window, step);
            return true;
        });
    }

    /// Repeats the attempt until it succeeds.
    void run_once(const std::function<bool()> &attempt)
    {
        constexpr int poll_ms = 5;
        auto *poll = new QTimer(this);
        connect(poll, &QTimer::timeout, poll, [=] {
            poll->stop();
            if (!attempt())
                poll->start(poll_ms);
        });
        poll->start(poll_ms);
    }

    static QMainWindow *main_window()
    {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            auto *window = qobject_cast<QMainWindow *>(widget);
            if (window && window->isVisible())
                return window;
        }
        return nullptr;
    }

    const QRegularExpression showing{"^showing "};
    const QStringList steps;
    QTimer start;
};

}  // namespace

class inside_driver : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "inside_driver.json")

public:
    QObject *create(const QString & /*key*/, const QString & /*arguments*/) override
    {
        return new driver;
    }
};

#include "inside_driver.moc"
