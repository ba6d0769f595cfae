// SPDX-License-Identifier: GPL-3.0-or-later
//
// Tests which frames the application object puts on the stack, and when: this program defines its
// own trace_scope, which keeps a log. The linker prefers it to the library's.

#include "MainWindow.h"
#include "orv/application_common.h"
#include "private_home.h"
#include "qor/stacktrace.h"
#include "qor/trace_scope.h"
#include "startup/program_setup.h"

#include <QtTest>

#include <csignal>

namespace
{

const QString constructor_place = "orv_toolkit/orv/application_common:19 "
                                  "orv::application<MainWindowClass>::application(int&, char**) "
                                  "[with MainWindowClass = MainWindow]";
const QString event_place = "orv_toolkit/orv/application_common:24 "
                            "bool orv::application<MainWindowClass>::event(QEvent*) "
                            "[with MainWindowClass = MainWindow]";

QStringList scope_log;
QStringList constructor_log;

QString text_of(const qor::stack_frame &frame)
{
    return QString("%1:%2 %3").arg(frame.file, QString::number(frame.line), frame.function);
}

}  // namespace

namespace qor
{

trace_scope::trace_scope(const char *file, int line, const char *function)
    : frame{file, line, function}
{
    scope_log << "push " + text_of(frame);
}

trace_scope::~trace_scope()
{
    scope_log << "pop " + text_of(frame);
}

}  // namespace qor

class test_application_frames : public QObject
{
    Q_OBJECT

private slots:
    void constructor_is_first_on_the_stack();
    void event_is_on_the_stack_while_it_is_handled();
    void each_event_is_on_the_stack_once();
};

void test_application_frames::constructor_is_first_on_the_stack()
{
    QCOMPARE(constructor_log,
             QStringList({"push " + constructor_place, "pop " + constructor_place}));
}

void test_application_frames::event_is_on_the_stack_while_it_is_handled()
{
    scope_log.clear();
    QMetaObject::invokeMethod(
        qApp, [] { scope_log << "working"; }, Qt::QueuedConnection);
    QCoreApplication::sendPostedEvents(qApp, QEvent::MetaCall);
    QCOMPARE(scope_log, QStringList({"push " + event_place, "working", "pop " + event_place}));
}

void test_application_frames::each_event_is_on_the_stack_once()
{
    scope_log.clear();
    for (int i = 0; i < 2; ++i) {
        QEvent event(QEvent::User);
        QCoreApplication::sendEvent(qApp, &event);
    }
    const QStringList one_event{"push " + event_place, "pop " + event_place};
    QCOMPARE(scope_log, one_event + one_event);
}

int main(int argc, char **argv)
{
    const private_home home;
    set_identity();
    orv::application<MainWindow> application(argc, argv);
    constructor_log = scope_log;
    test_application_frames test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_application_frames.moc"
