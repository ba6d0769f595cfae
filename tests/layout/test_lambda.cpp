// SPDX-License-Identifier: GPL-3.0-or-later

#include "qor/qt/lambda.h"
#include "widget_test_main.h"

#include <QPointer>
#include <QPushButton>
#include <QTimer>

#include <memory>

using qor::qt::lambda;

class test_lambda : public QObject
{
    Q_OBJECT

private slots:
    void call_runs_the_function_each_time();
    void call_without_a_function_does_nothing();
    void call_is_its_only_slot();
    void signal_can_be_connected_by_text();
    void connection_ends_with_it();
    void timer_can_call_it_by_text();
    void function_lives_as_long_as_the_lambda();
    void dies_with_its_parent();
    void has_no_owner_without_a_parent();
};

void test_lambda::call_runs_the_function_each_time()
{
    int calls = 0;
    lambda receiver([&] { ++calls; });
    QCOMPARE(calls, 0);
    receiver.call();
    receiver.call();
    QCOMPARE(calls, 2);
}

void test_lambda::call_without_a_function_does_nothing()
{
    lambda receiver(nullptr);
    receiver.call();
    QPushButton button;
    QVERIFY(connect(&button, "2clicked()", &receiver, "1call()"));
    QTest::mouseClick(&button, Qt::LeftButton);
}

void test_lambda::call_is_its_only_slot()
{
    const QMetaObject &meta = lambda::staticMetaObject;
    QCOMPARE(meta.className(), "qor::qt::lambda");
    QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
    const QMetaMethod method = meta.method(meta.methodOffset());
    QCOMPARE(method.methodSignature(), QByteArray("call()"));
    QCOMPARE(method.methodType(), QMetaMethod::Slot);
}

void test_lambda::signal_can_be_connected_by_text()
{
    int calls = 0;
    QPushButton button;
    lambda receiver([&] { ++calls; });
    QVERIFY(connect(&button, "2clicked()", &receiver, "1call()"));
    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(calls, 1);
    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(calls, 2);
}

void test_lambda::connection_ends_with_it()
{
    int calls = 0;
    QPushButton button;
    {
        lambda receiver([&] { ++calls; });
        QVERIFY(connect(&button, "2clicked()", &receiver, "1call()"));
    }
    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(calls, 0);
}

void test_lambda::timer_can_call_it_by_text()
{
    int calls = 0;
    lambda receiver([&] { ++calls; });
    QTimer::singleShot(0, &receiver, "1call()");
    QCOMPARE(calls, 0);
    QTRY_COMPARE(calls, 1);
}

void test_lambda::function_lives_as_long_as_the_lambda()
{
    const auto held = std::make_shared<int>();
    {
        const lambda receiver([held] {});
        QCOMPARE(held.use_count(), 2L);
    }
    QCOMPARE(held.use_count(), 1L);
}

void test_lambda::dies_with_its_parent()
{
    QPointer<lambda> receiver;
    {
        QObject parent;
        receiver = new lambda([] {}, &parent);
        QCOMPARE(receiver->parent(), &parent);
    }
    QVERIFY(!receiver);
}

void test_lambda::has_no_owner_without_a_parent()
{
    const lambda receiver([] {});
    QVERIFY(!receiver.parent());
}

KELVRA_WIDGET_TEST_MAIN(test_lambda)
#include "test_lambda.moc"
