// SPDX-License-Identifier: GPL-3.0-or-later

#include "program_test_main.h"
#include "table_data_model.h"

#include <QHeaderView>
#include <QTableView>
#include <QTranslator>

namespace
{

using column = table_data_model::column;

}  // namespace

class test_table_header : public QObject
{
    Q_OBJECT

private slots:
    void header_titles_data();
    void header_titles();
    void header_size_and_font_data();
    void header_size_and_font();
    void header_answers_other_requests_as_the_base_class_data();
    void header_answers_other_requests_as_the_base_class();
    void empty_table_has_three_sections_of_their_height();

private:
    const table_data_model model{nullptr};
};

void test_table_header::header_titles_data()
{
    QTest::addColumn<QString>("catalogue");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("English") << "" << QStringList{"Photos", "Recording Time", "New Recording Time"};
    QTest::newRow("German") << ":/translations/de"
                            << QStringList{"Foto", "Aufnahmezeitpunkt", "Neuer Aufnahmezeitpunkt"};
}

void test_table_header::header_titles()
{
    QFETCH(QString, catalogue);
    QTranslator translator;
    if (!catalogue.isEmpty()) {
        QVERIFY(translator.load(catalogue));
        QVERIFY(QCoreApplication::installTranslator(&translator));
    }
    QStringList titles;
    for (int section = 0; section < column::column_count; ++section)
        titles << model.headerData(section, Qt::Horizontal).toString();
    QTEST(titles, "expected");
}

void test_table_header::header_size_and_font_data()
{
    QTest::addColumn<int>("section");
    QTest::addColumn<QSize>("size");
    QTest::newRow("name has a width") << 0 << QSize(300, 30);
    QTest::newRow("recording time") << 1 << QSize(-1, 30);
    QTest::newRow("new recording time") << 2 << QSize(-1, 30);
    QTest::newRow("section that isn't there") << 3 << QSize(-1, 30);
}

void test_table_header::header_size_and_font()
{
    QFETCH(int, section);
    const auto header = [this, section](int role) {
        return model.headerData(section, Qt::Horizontal, role);
    };
    QTEST(header(Qt::SizeHintRole).toSize(), "size");
    QCOMPARE(header(Qt::InitialSortOrderRole), QVariant(0));
    QCOMPARE(header(Qt::TextAlignmentRole), QVariant(129));
    QCOMPARE(header(Qt::FontRole).value<QFont>(), model.header_font);
}

void test_table_header::header_answers_other_requests_as_the_base_class_data()
{
    QTest::addColumn<int>("section");
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<int>("role");
    QTest::addColumn<QVariant>("expected");
    // clang-format off
    QTest::newRow("title beyond the last") << 3 << Qt::Horizontal << int{Qt::DisplayRole} << QVariant(4);
    QTest::newRow("row number") << 0 << Qt::Vertical << int{Qt::DisplayRole} << QVariant(1);
    QTest::newRow("no tool tip") << 0 << Qt::Horizontal << int{Qt::ToolTipRole} << QVariant();
    QTest::newRow("no picture") << 0 << Qt::Horizontal << int{Qt::DecorationRole} << QVariant();
    QTest::newRow("row size") << 0 << Qt::Vertical << int{Qt::SizeHintRole} << QVariant();
    QTest::newRow("row sort order") << 0 << Qt::Vertical << int{Qt::InitialSortOrderRole} << QVariant();
    QTest::newRow("row alignment") << 0 << Qt::Vertical << int{Qt::TextAlignmentRole} << QVariant();
    QTest::newRow("row font") << 0 << Qt::Vertical << int{Qt::FontRole} << QVariant();
    // clang-format on
}

void test_table_header::header_answers_other_requests_as_the_base_class()
{
    QFETCH(int, section);
    QFETCH(Qt::Orientation, orientation);
    QFETCH(int, role);
    QTEST(model.headerData(section, orientation, role), "expected");
}

void test_table_header::empty_table_has_three_sections_of_their_height()
{
    table_data_model empty(nullptr);
    QTableView view;
    view.setModel(&empty);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QCOMPARE(view.horizontalHeader()->count(), 3);
    QCOMPARE(view.verticalHeader()->count(), 0);
    QCOMPARE(view.horizontalHeader()->height(), 30);
    QCOMPARE(view.horizontalHeader()->sectionSizeHint(column::name_column), 300);
}

KELVRA_PROGRAM_TEST_MAIN(test_table_header)

#include "test_table_header.moc"
