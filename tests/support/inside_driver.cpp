// Stands in for the user of a program that runs outside of the test: Qt loads this as a generic
// plugin into the program itself (QT_QPA_GENERIC_PLUGINS), so the program stays as it is.
//
// Once its main window is on the screen and all its events are served, it prints "shown" and does
// what INSIDE_DRIVER says, steps separated by ";":
//   report      prints what the program's set-up has made of style, identity and texts
//   open PATH   sends a file-open event to the application object
//   rows        prints how many rows the table has
//   settings LANGUAGE ANSWER
//               clicks the settings button, picks the language, closes the dialog and clicks the
//               button ANSWER, "Yes" or "No", of the question behind it; prints its title
//   hide | close | exit STATUS

#include <QAbstractEventDispatcher>
#include <QAbstractItemModel>
#include <QApplication>
#include <QComboBox>
#include <QFileOpenEvent>
#include <QGenericPlugin>
#include <QIcon>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QStringList>
#include <QStyle>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include <unistd.h>

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

/// Does in the settings dialog, and in the box behind it, what the user would do.
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

/// The first button of the strip at the top.
QPushButton *settings_button(const QMainWindow &window)
{
    QPushButton *first = nullptr;
    for (auto *button : window.findChild<QWidget *>("widget_info")->findChildren<QPushButton *>()) {
        if (!first || button->x() < first->x())
            first = button;
    }
    return first;
}

void change_language(const QMainWindow &window, const QString &language, const QString &answer)
{
    const settings_user user(language, answer);
    QTest::mouseClick(settings_button(window), Qt::LeftButton);
}

class driver : public QObject
{
public:
    driver() : steps(qEnvironmentVariable("INSIDE_DRIVER").split(';', Qt::SkipEmptyParts))
    {
        connect(&start, &QTimer::timeout, this, &driver::wait_for_idleness);
        start.start(0);
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
        // Past the stream's buffer, which a signal behind the write would have flushed once more.
        if (write(STDOUT_FILENO, shown_line, sizeof shown_line - 1) == -1)
            qFatal("nobody reads");
        if (!steps.isEmpty())
            QTimer::singleShot(0, this, &driver::run_steps);
    }

    void run_steps()
    {
        QMainWindow *window = main_window();
        for (const QString &step : qAsConst(steps))
            run(*window, step.section(' ', 0, 0), step.section(' ', 1));
    }

    static void run(QMainWindow &window, const QString &verb, const QString &argument)
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
        else if (verb == "hide")
            window.hide();
        else if (verb == "close")
            window.close();
        else if (verb == "exit")
            QCoreApplication::exit(argument.toInt());
        else
            qFatal("unknown step %s", qPrintable(verb));
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
