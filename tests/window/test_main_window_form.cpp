// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "datetime_format.h"
#include "drop_files_widget.h"
#include "expected_sheets.h"
#include "main_window_form.h"
#include "orv/progress_dialog.h"
#include "program_test_main.h"
#include "table_data_model.h"
#include "time_adjustment.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QProgressBar>
#include <QScrollBar>
#include <QStyle>
#include <QTableView>

namespace
{

constexpr char panel_sheet[] = "background-color: "
                               "rgb(47,47,47);\nborder-style:solid;\nborder-width:3px;\nborder-"
                               "image:url(:/gui/panel/border.png) 3 stretch;";
constexpr char table_sheet[] =
    "QTableView {\nalternate-background-color: rgb(68, 68, 68);\nbackground-color: rgb(38, 38, "
    "38);\n}\nQTableView::item {\npadding-left: 1em;\nborder: 0px;\nborder-right: 1px solid "
    "black;\n}";
constexpr char table_header_sheet[] =
    "QHeaderView::section {border-width: 3;border-style: "
    "solid;border-image:url(:/gui/panel/border.png) 3 stretch;padding-left: 1em;}";

void check_layout(const QLayout *layout, int spacing, const QMargins &margins)
{
    QCOMPARE(layout->spacing(), spacing);
    QCOMPARE(layout->contentsMargins(), margins);
}

void check_policy(const QWidget *widget, QSizePolicy::Policy horizontal,
                  QSizePolicy::Policy vertical)
{
    QCOMPARE(widget->sizePolicy().horizontalPolicy(), horizontal);
    QCOMPARE(widget->sizePolicy().verticalPolicy(), vertical);
}

void check_spacer(QLayoutItem *item, const QSize &size, QSizePolicy::Policy vertical)
{
    QVERIFY(item && item->spacerItem());
    QCOMPARE(item->spacerItem()->sizeHint(), size);
    QCOMPARE(item->spacerItem()->sizePolicy().horizontalPolicy(), QSizePolicy::Minimum);
    QCOMPARE(item->spacerItem()->sizePolicy().verticalPolicy(), vertical);
}

}  // namespace

class test_main_window_form : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup() { delete window; }
    void window_has_name_size_and_sheet();
    void record_has_the_named_object_data();
    void record_has_the_named_object();
    void widget_is_in_its_grid_data();
    void widget_is_in_its_grid();
    void sheet_has_its_bytes_data();
    void sheet_has_its_bytes();
    void bands_have_their_heights();
    void grids_have_no_spacing_or_margins();
    void drop_area_has_size_and_margins();
    void panels_have_their_heights();
    void table_is_read_only();
    void columns_share_the_tables_width();
    void table_header_has_its_own_style();
    void table_starts_sorted_by_name();
    void scroll_bars_are_skinned();
    void progress_dialogs_have_their_labels_data();
    void progress_dialogs_have_their_labels();

private:
    MainWindow *window = nullptr;
    main_window_form *ui = nullptr;
    QMap<QString, QObject *> record;  ///< the form's fields by name
};

void test_main_window_form::initTestCase()
{
    clear_settings();
}

void test_main_window_form::init()
{
    window = new MainWindow(nullptr);
    ui = window->ui;
    record = {{"centralWidget", ui->centralWidget},
              {"gridLayout", ui->gridLayout},
              {"widget_logo", ui->widget_logo},
              {"widget_info", ui->widget_info},
              {"widget_content", ui->widget_content},
              {"gridLayout_2", ui->gridLayout_2},
              {"widget_dropper", ui->widget_dropper},
              {"verticalLayout", ui->verticalLayout},
              {"widget", ui->widget},
              {"verticalLayout_2", ui->verticalLayout_2},
              {"dropper_controls", ui->dropper_controls},
              {"widget_datetime_format", ui->widget_datetime_format},
              {"tableView", ui->tableView},
              {"widget_time_adjust", ui->widget_time_adjust},
              {"MainWindow", window}};
}

void test_main_window_form::window_has_name_size_and_sheet()
{
    QCOMPARE(window->objectName(), QString("MainWindow"));
    QCOMPARE(window->windowTitle(), QString("Kelvra"));
    QCOMPARE(window->size(), QSize(800, 700));
    QCOMPARE(window->minimumSize(), QSize(800, 600));
    QCOMPARE(window->centralWidget(), ui->centralWidget);
    QCOMPARE(window->windowFlags(), QMainWindow().windowFlags());
    check_policy(ui->centralWidget, QSizePolicy::Preferred, QSizePolicy::Preferred);
    QCOMPARE(ui->centralWidget->sizePolicy().horizontalStretch(), 1);
}

void test_main_window_form::record_has_the_named_object_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QString>("parent");
    const auto row = [](const char *name, const char *type, const char *parent) {
        QTest::newRow(name) << QByteArray(type) << QString(parent);
    };
    row("centralWidget", "QWidget", "MainWindow");
    row("gridLayout", "QGridLayout", "centralWidget");
    row("widget_logo", "QWidget", "centralWidget");
    row("widget_info", "QWidget", "centralWidget");
    row("widget_content", "QWidget", "centralWidget");
    row("gridLayout_2", "QGridLayout", "widget_content");
    row("widget_dropper", "drop_files_widget", "widget_content");
    row("verticalLayout", "QVBoxLayout", "widget_dropper");
    row("widget", "QWidget", "widget_dropper");
    row("verticalLayout_2", "QVBoxLayout", "widget");
    row("dropper_controls", "QWidget", "widget");
    row("widget_datetime_format", "datetime_format", "widget_content");
    row("tableView", "QTableView", "widget_content");
    row("widget_time_adjust", "time_adjustment", "widget_content");
}

void test_main_window_form::record_has_the_named_object()
{
    QFETCH(QByteArray, type);
    QFETCH(QString, parent);
    const QString name = QTest::currentDataTag();
    const QObject *object = record.value(name);
    QVERIFY(object);
    QCOMPARE(object->objectName(), name);
    QCOMPARE(QByteArray(object->metaObject()->className()), type);
    QCOMPARE(object->parent(), record.value(parent));
    QVERIFY(window->findChildren<QObject *>(name).contains(record.value(name)));
}

void test_main_window_form::widget_is_in_its_grid_data()
{
    QTest::addColumn<QString>("grid");
    QTest::addColumn<QVector<int>>("place");
    using place = QVector<int>;
    QTest::newRow("widget_info") << "gridLayout" << place{1, 0, 1, 1};
    QTest::newRow("widget_logo") << "gridLayout" << place{2, 0, 1, 1};
    QTest::newRow("widget_content") << "gridLayout" << place{3, 0, 1, 1};
    QTest::newRow("widget_dropper") << "gridLayout_2" << place{0, 1, 4, 1};
    QTest::newRow("widget_time_adjust") << "gridLayout_2" << place{1, 2, 1, 1};
    QTest::newRow("widget_datetime_format") << "gridLayout_2" << place{2, 2, 1, 1};
    QTest::newRow("tableView") << "gridLayout_2" << place{4, 1, 1, 2};
}

void test_main_window_form::widget_is_in_its_grid()
{
    QFETCH(QString, grid);
    QFETCH(QVector<int>, place);
    auto *layout = qobject_cast<QGridLayout *>(record.value(grid));
    auto *widget = qobject_cast<QWidget *>(record.value(QTest::currentDataTag()));
    QVERIFY(layout && widget);
    QVector<int> found(4, -1);
    layout->getItemPosition(layout->indexOf(widget), &found[0], &found[1], &found[2], &found[3]);
    QCOMPARE(found, place);
}

void test_main_window_form::sheet_has_its_bytes_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::newRow("MainWindow") << "color: rgb(198,213,210);";
    QTest::newRow("widget_info") << "background-color: rgb(47,47,47);";
    QTest::newRow("widget_content") << "background-color: rgb(0,0,0);";
    QTest::newRow("dropper_controls") << "background: none;";
    QTest::newRow("widget_datetime_format") << panel_sheet;
    QTest::newRow("widget_time_adjust") << panel_sheet;
    QTest::newRow("tableView") << table_sheet;
}

void test_main_window_form::sheet_has_its_bytes()
{
    QFETCH(QString, sheet);
    const auto *widget = qobject_cast<QWidget *>(record.value(QTest::currentDataTag()));
    QVERIFY(widget);
    QCOMPARE(widget->styleSheet(), sheet);
}

void test_main_window_form::bands_have_their_heights()
{
    check_policy(ui->widget_logo, QSizePolicy::Preferred, QSizePolicy::Fixed);
    QCOMPARE(ui->widget_logo->minimumHeight(), 66);
    QCOMPARE(ui->widget_logo->maximumHeight(), 66);
    QCOMPARE(ui->widget_info->minimumHeight(), 10);
}

void test_main_window_form::grids_have_no_spacing_or_margins()
{
    QCOMPARE(ui->centralWidget->layout(), ui->gridLayout);
    QCOMPARE(ui->widget_content->layout(), ui->gridLayout_2);
    check_layout(ui->gridLayout, 0, QMargins());
    check_layout(ui->gridLayout_2, 0, QMargins());
}

void test_main_window_form::drop_area_has_size_and_margins()
{
    check_policy(ui->widget_dropper, QSizePolicy::Fixed, QSizePolicy::Fixed);
    QCOMPARE(ui->widget_dropper->minimumSize(), QSize(300, 215));
    QVERIFY(ui->widget_dropper->acceptDrops());
    QCOMPARE(ui->widget_dropper->layout(), ui->verticalLayout);
    check_layout(ui->verticalLayout, 0, QMargins(0, 0, 0, 40));
    QCOMPARE(ui->verticalLayout->count(), 1);
    QCOMPARE(ui->verticalLayout->itemAt(0)->widget(), ui->widget);
    QCOMPARE(ui->widget->layout(), ui->verticalLayout_2);
    check_layout(ui->verticalLayout_2, 6, QMargins(11, 11, 11, 11));
    QCOMPARE(ui->verticalLayout_2->count(), 3);
    check_spacer(ui->verticalLayout_2->itemAt(0), {20, 20}, QSizePolicy::Fixed);
    QCOMPARE(ui->verticalLayout_2->itemAt(1)->widget(), ui->dropper_controls);
    check_spacer(ui->verticalLayout_2->itemAt(2), {20, 40}, QSizePolicy::Expanding);
}

void test_main_window_form::panels_have_their_heights()
{
    check_policy(ui->widget_datetime_format, QSizePolicy::Preferred, QSizePolicy::Preferred);
    QCOMPARE(ui->widget_datetime_format->minimumHeight(), 144);
    QCOMPARE(ui->widget_time_adjust->minimumHeight(), 71);
}

void test_main_window_form::table_is_read_only()
{
    const QTableView *table = ui->tableView;
    QCOMPARE(table->focusPolicy(), Qt::NoFocus);
    QCOMPARE(table->frameShape(), QFrame::NoFrame);
    QCOMPARE(table->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
    QCOMPARE(table->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(table->editTriggers(), QAbstractItemView::NoEditTriggers);
    QVERIFY(!table->tabKeyNavigation());
    QCOMPARE(table->property("showDropIndicator"), QVariant(false));
    QVERIFY(table->alternatingRowColors());
    QCOMPARE(table->selectionMode(), QAbstractItemView::NoSelection);
    QCOMPARE(table->verticalScrollMode(), QAbstractItemView::ScrollPerPixel);
    QVERIFY(!table->showGrid());
    QVERIFY(table->isSortingEnabled());
    QVERIFY(!table->wordWrap());
    QVERIFY(!table->isCornerButtonEnabled());
    QVERIFY(table->verticalHeader()->isHidden());
    QCOMPARE(table->model(), window->model);
    QVERIFY(!window->model->parent());
}

void test_main_window_form::columns_share_the_tables_width()
{
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    const QHeaderView *header = ui->tableView->horizontalHeader();
    QCOMPARE(header->count(), 3);
    QCOMPARE(header->sectionResizeMode(0), QHeaderView::Fixed);
    QCOMPARE(header->sectionResizeMode(1), QHeaderView::Stretch);
    QCOMPARE(header->sectionResizeMode(2), QHeaderView::Stretch);
    QCOMPARE(header->height(), 30);
    QCOMPARE(header->sectionSize(0), 300);
    QVERIFY(qAbs(header->sectionSize(1) - header->sectionSize(2)) <= 1);
    QCOMPARE(header->length(), ui->tableView->viewport()->width());
    window->resize(1000, 700);
    QTRY_COMPARE(header->length(), ui->tableView->viewport()->width());
    QCOMPARE(header->sectionSize(0), 300);
}

void test_main_window_form::table_header_has_its_own_style()
{
    QApplication::setStyle("windows");
    QHeaderView *header = ui->tableView->horizontalHeader();
    QCOMPARE(header->styleSheet(), QString(table_header_sheet));
    QVERIFY(header->testAttribute(Qt::WA_SetStyle));
    // Without any style sheet the underlying style shows.
    header->setParent(nullptr);
    header->setStyleSheet(QString());
    QVERIFY(header->style()->inherits("QFusionStyle"));
    QVERIFY(header->style() != QApplication::style());
    header->setParent(ui->tableView);
}

void test_main_window_form::table_starts_sorted_by_name()
{
    const QHeaderView *header = ui->tableView->horizontalHeader();
    QCOMPARE(header->sortIndicatorSection(), 0);
    QCOMPARE(header->sortIndicatorOrder(), Qt::AscendingOrder);
    QCOMPARE(window->model->sort_column, 0);
    QCOMPARE(window->model->sort_order, Qt::AscendingOrder);
    QCOMPARE(window->model->rowCount(), 0);
}

void test_main_window_form::scroll_bars_are_skinned()
{
    QCOMPARE(ui->tableView->verticalScrollBar()->styleSheet(), QString(scroll_bar_sheet));
    QVERIFY(ui->tableView->horizontalScrollBar()->styleSheet().contains("height:11px"));
}

void test_main_window_form::progress_dialogs_have_their_labels_data()
{
    QTest::addColumn<QString>("label");
    QTest::newRow("fix") << "Fixing time";
    QTest::newRow("load") << "Loading files";
}

void test_main_window_form::progress_dialogs_have_their_labels()
{
    QFETCH(QString, label);
    QCOMPARE(window->findChildren<orv::progress_dialog *>().size(), 2);
    const orv::progress_dialog *dialog =
        QTest::currentDataTag() == QByteArray("fix") ? window->progress_fix : window->progress_load;
    QCOMPARE(dialog->parentWidget(), window);
    QCOMPARE(dialog->labelText(), label);
    QCOMPARE(dialog->windowTitle(), QString("Please Wait"));
    const auto *bar = dialog->findChild<QProgressBar *>();
    QVERIFY(bar);
    QCOMPARE(bar->format(), QString("%v of %m"));
    QVERIFY(!dialog->isVisible());
    QVERIFY(dialog->minimumSize() == dialog->maximumSize());
}

KELVRA_PROGRAM_TEST_MAIN(test_main_window_form)
#include "test_main_window_form.moc"
