// SPDX-License-Identifier: GPL-3.0-or-later

#include "qor/qt/cell.h"
#include "qor/qt/properties.h"
#include "qor/qt/stylesheet.h"
#include "widget_test_main.h"

#include <QWidget>

using qor::qt::stylesheet;
namespace properties = qor::qt::properties;

namespace
{

/// The declarations of the group without a selector, as "name=value".
QStringList read_declarations(stylesheet &sheet)
{
    QStringList shown;
    for (const auto &[name, value] : sheet.groups[""])
        shown << QString::fromStdString(name) + "=" + QString::fromStdString(value);
    return shown;
}

/// Counts how often a polished widget gets a style sheet.
class sheet_counter : public QObject
{
public:
    explicit sheet_counter(QWidget &watched)
    {
        watched.ensurePolished();
        watched.installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        changes += event->type() == QEvent::StyleChange ? 1 : 0;
        return false;
    }

    int changes = 0;
};

void apply_style(QWidget &widget, const QString &declarations)
{
    qor::qt::cell cell(&widget);
    cell.apply({properties::style(declarations)});
}

}  // namespace

class test_stylesheet : public QObject
{
    Q_OBJECT

private slots:
    void declarations_are_read_data();
    void declarations_are_read();
    void group_without_a_selector_always_exists();
    void set_adds_to_existing_declarations();
    void set_reads_utf_8();
    void set_does_not_change_other_groups();
    void sheet_is_written_sorted_by_bytes_data();
    void sheet_is_written_sorted_by_bytes();
    void selectors_are_written_with_braces();
    void groups_without_declarations_are_skipped();
    void applied_sheet_replaces_the_widgets_sheet();
    void style_is_merged_into_the_widgets_sheet_data();
    void style_is_merged_into_the_widgets_sheet();
    void repeated_style_adds_nothing();
    void merge_works_by_declaration_data();
    void merge_works_by_declaration();
    void merge_that_ends_early_does_not_set_the_sheet_data();
    void merge_that_ends_early_does_not_set_the_sheet();
    void merge_sets_the_sheet_once();
};

// clang-format off
void test_stylesheet::declarations_are_read_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("nothing") << "" << QStringList{};
    QTest::newRow("one") << "color:red;" << QStringList{"color=red"};
    QTest::newRow("last one without a semicolon") << "color:red;margin:1px" << QStringList{"color=red", "margin=1px"};
    QTest::newRow("only semicolons") << ";;" << QStringList{};
    QTest::newRow("empty pieces between") << ";color:red;;margin:1px;;" << QStringList{"color=red", "margin=1px"};
    QTest::newRow("piece without a colon is dropped") << "color;margin:1px;" << QStringList{"margin=1px"};
    QTest::newRow("piece without a value is dropped") << "color:;margin:1px;" << QStringList{"margin=1px"};
    QTest::newRow("last piece without a value is dropped") << "margin:1px;color:" << QStringList{"margin=1px"};
    QTest::newRow("piece without a name is dropped") << ":red;margin:1px;" << QStringList{"margin=1px"};
    QTest::newRow("only a colon is dropped") << ":;margin:1px;" << QStringList{"margin=1px"};
    QTest::newRow("only colons are dropped") << "::;margin:1px;" << QStringList{"margin=1px"};
    QTest::newRow("dropped piece keeps the earlier value") << "color:red;color:;" << QStringList{"color=red"};
    QTest::newRow("value with a colon is kept whole") << "border-image:url(:/gui/panel/border.png) 3 stretch;" << QStringList{"border-image=url(:/gui/panel/border.png) 3 stretch"};
    QTest::newRow("value with several colons") << "a:b:c:d;" << QStringList{"a=b:c:d"};
    QTest::newRow("value that starts with a colon") << "a::b;" << QStringList{"a=:b"};
    QTest::newRow("value that ends in a colon") << "a:b:;" << QStringList{"a=b:"};
    QTest::newRow("later one wins") << "color:red;margin:1px;color:blue;" << QStringList{"color=blue", "margin=1px"};
    QTest::newRow("spaces are kept") << " color : red ;" << QStringList{" color = red "};
    QTest::newRow("line ends are kept") << "\ncolor:red\n;" << QStringList{"\ncolor=red\n"};
    QTest::newRow("only spaces are a name and a value") << " : ;" << QStringList{" = "};
    QTest::newRow("name with a leading space is another name") << "color:red; color:blue;" << QStringList{" color=blue", "color=red"};
    QTest::newRow("name in upper case is another name") << "color:red;Color:blue;" << QStringList{"Color=blue", "color=red"};
    QTest::newRow("beyond ASCII") << QString::fromUtf8("größe:ö€😀;") << QStringList{QString::fromUtf8("größe=ö€😀")};
    QTest::newRow("braces mean nothing") << "QLabel{color:red;}" << QStringList{"QLabel{color=red"};
}
// clang-format on

void test_stylesheet::declarations_are_read()
{
    QFETCH(QString, text);
    QFETCH(QStringList, expected);
    stylesheet sheet(text);
    QCOMPARE(sheet.groups.size(), std::size_t(1));
    QCOMPARE(read_declarations(sheet), expected);
    stylesheet filled_later((QString()));
    filled_later.set(text.toStdString());
    QCOMPARE(read_declarations(filled_later), expected);
}

void test_stylesheet::group_without_a_selector_always_exists()
{
    const stylesheet sheet((QString()));
    QCOMPARE(sheet.groups.size(), std::size_t(1));
    QCOMPARE(sheet.groups.count(""), std::size_t(1));
    QVERIFY(sheet.groups.at("").empty());
}

void test_stylesheet::set_adds_to_existing_declarations()
{
    stylesheet sheet("color:red;margin:1px;");
    sheet.set("padding:2px;color:blue;margin:;border");
    QCOMPARE(read_declarations(sheet), QStringList({"color=blue", "margin=1px", "padding=2px"}));
}

void test_stylesheet::set_reads_utf_8()
{
    stylesheet sheet((QString()));
    sheet.set("a:\xC3\xB6");
    QCOMPARE(sheet.groups[""]["a"], std::string("\xC3\xB6"));
    QCOMPARE(stylesheet(QString(QChar(0xF6)) + ":1").groups[""].begin()->first,
             std::string("\xC3\xB6"));
}

void test_stylesheet::set_does_not_change_other_groups()
{
    stylesheet sheet("color:red;");
    sheet.groups["QLabel"]["color"] = "green";
    sheet.set("color:blue;");
    QCOMPARE(read_declarations(sheet), QStringList{"color=blue"});
    QCOMPARE(sheet.groups["QLabel"]["color"], std::string("green"));
}

// clang-format off
void test_stylesheet::sheet_is_written_sorted_by_bytes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("nothing") << "" << "";
    QTest::newRow("one gets its semicolon") << "color:red" << "color:red;";
    QTest::newRow("by name, not by value") << "margin:1px;color:red;border:none;" << "border:none;color:red;margin:1px;";
    QTest::newRow("beginning of another name first") << "border-image:b;border:a;" << "border:a;border-image:b;";
    QTest::newRow("upper case before lower case") << "a:1;Z:2;" << "Z:2;a:1;";
    QTest::newRow("space before all letters") << "A:1; z:2;" << " z:2;A:1;";
    QTest::newRow("beyond ASCII after all of ASCII") << QString::fromUtf8("ä:1;z:2;~:3;") << QString::fromUtf8("z:2;~:3;ä:1;");
    QTest::newRow("by UTF-8, not by UTF-16") << QString::fromUtf8("😀:1;Ａ:2;") << QString::fromUtf8("Ａ:2;😀:1;");
}
// clang-format on

void test_stylesheet::sheet_is_written_sorted_by_bytes()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QCOMPARE(QString::fromStdString(stylesheet(text).to_string()), expected);
}

void test_stylesheet::selectors_are_written_with_braces()
{
    stylesheet sheet("margin:1px;color:red;");
    sheet.groups["QLabel"]["color"] = "green";
    sheet.groups["QLabel"]["border"] = "none";
    sheet.groups["#name"]["color"] = "blue";
    QCOMPARE(sheet.to_string(), std::string("color:red;margin:1px;"
                                            "#name{color:blue;}\n"
                                            "QLabel{border:none;color:green;}\n"));
}

void test_stylesheet::groups_without_declarations_are_skipped()
{
    stylesheet sheet((QString()));
    sheet.groups["QLabel"];
    QCOMPARE(sheet.to_string(), std::string());
    sheet.groups["QWidget"]["color"] = "red";
    QCOMPARE(sheet.to_string(), std::string("QWidget{color:red;}\n"));
}

void test_stylesheet::applied_sheet_replaces_the_widgets_sheet()
{
    QWidget widget;
    widget.setStyleSheet("margin:1px;");
    stylesheet(QString::fromUtf8("qproperty-toolTip:\"größer €\";color:red")).apply_to(&widget);
    QCOMPARE(widget.styleSheet(), QString::fromUtf8("color:red;qproperty-toolTip:\"größer €\";"));
    widget.ensurePolished();
    QCOMPARE(widget.toolTip(), QString::fromUtf8("größer €"));
}

// clang-format off
void test_stylesheet::style_is_merged_into_the_widgets_sheet_data()
{
    QTest::addColumn<QString>("present");
    QTest::addColumn<QString>("style");
    QTest::addColumn<QString>("expected");
    QTest::newRow("later declaration of a name wins") << "color:blue;margin:1px;" << "color:red" << "color:red;margin:1px;";
    QTest::newRow("on no sheet") << "" << "margin:1px;color:red;" << "color:red;margin:1px;";
    QTest::newRow("empty style sorts what is there") << "margin:1px;color:red" << "" << "color:red;margin:1px;";
    QTest::newRow("whole name counts, not its end") << "background-color:blue;" << "color:red;" << "background-color:blue;color:red;";
    QTest::newRow("what can't be read is dropped") << "color;" << "margin:;padding:1px;" << "padding:1px;";
    QTest::newRow("value with a colon") << "color:red;" << "border-image:url(:/a.png);" << "border-image:url(:/a.png);color:red;";
    QTest::newRow("no semicolon comes between") << "color:blue" << "margin:1px;" << "color:bluemargin:1px;";
}
// clang-format on

void test_stylesheet::style_is_merged_into_the_widgets_sheet()
{
    QFETCH(QString, present);
    QFETCH(QString, style);
    QFETCH(QString, expected);
    QWidget widget;
    widget.setStyleSheet(present);
    apply_style(widget, style);
    QCOMPARE(widget.styleSheet(), expected);
}

void test_stylesheet::repeated_style_adds_nothing()
{
    QWidget widget;
    for (int i = 0; i < 3; ++i) {
        apply_style(widget, "color:red;");
        apply_style(widget, "color:blue;margin:1px");
        QCOMPARE(widget.styleSheet(), QString("color:blue;margin:1px;"));
    }
}

// clang-format off
void test_stylesheet::merge_works_by_declaration_data()
{
    QTest::addColumn<QString>("present");
    QTest::addColumn<QString>("addition");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("addition_after");
    QTest::newRow("empty addition") << "a:1" << "" << "a:1" << "";
    QTest::newRow("semicolon is added") << "" << "a:1" << "a:1;" << "a:1;";
    QTest::newRow("semicolon is there") << "" << "a:1;" << "a:1;" << "a:1;";
    QTest::newRow("semicolon followed by a space isn't the last") << "" << "a:1; " << "a:1; ;" << "a:1; ;";
    QTest::newRow("semicolon at the start is a declaration") << "a:1;" << ";a:2;" << "a:2;;" << ";a:2;";
    QTest::newRow("not found goes to the end") << "b:2;" << "a:1;" << "b:2;a:1;" << "a:1;";
    QTest::newRow("several go to the end in their order") << "z:1;" << "b:2;a:1;" << "z:1;b:2;a:1;" << "b:2;a:1;";
    QTest::newRow("found is replaced in its place") << "a:1;b:2;c:3;" << "b:9;" << "a:1;b:9;c:3;" << "b:9;";
    QTest::newRow("found and longer") << "a:1;b:2;" << "a:long value;" << "a:long value;b:2;" << "a:long value;";
    QTest::newRow("several are replaced") << "a:1;b:2;" << "b:8;a:9" << "a:9;b:8;" << "b:8;a:9;";
    QTest::newRow("replaced and added") << "a:1;b:2;" << "b:8;c:3;" << "a:1;b:8;c:3;" << "b:8;c:3;";
    QTest::newRow("first place of several") << "a:1;b:2;a:3;" << "a:4;" << "a:4;b:2;a:3;" << "a:4;";
    QTest::newRow("search starts again each time") << "a:1;b:2;" << "b:8;a:9;b:7;" << "a:9;b:7;" << "b:8;a:9;b:7;";
    QTest::newRow("own earlier declaration is found") << "" << "a:1;a:2;" << "a:2;" << "a:1;a:2;";
    QTest::newRow("inside another name") << "background-color:red;" << "color:blue;" << "background-color:blue;" << "color:blue;";
    QTest::newRow("inside another name before its own") << "background-color:red;color:green;" << "color:blue;" << "background-color:blue;color:green;" << "color:blue;";
    QTest::newRow("inside a value") << "x:a:1;" << "a:2;" << "x:a:2;" << "a:2;";
    QTest::newRow("not the beginning of another name") << "border-image:none;" << "border:none;" << "border-image:none;border:none;" << "border:none;";
    QTest::newRow("upper case isn't found") << "Color:red;" << "color:blue;" << "Color:red;color:blue;" << "color:blue;";
    QTest::newRow("plain text, no pattern") << "axb:1;" << "a.b:2;" << "axb:1;a.b:2;" << "a.b:2;";
    QTest::newRow("space belongs to the name") << "a:1;" << " a:2;" << "a:1; a:2;" << " a:2;";
    QTest::newRow("space before the found name stays") << " a:1;" << "a:2;" << " a:2;" << "a:2;";
    QTest::newRow("value with a colon") << "border-image:url(:/a.png);" << "border-image:url(:/b.png);" << "border-image:url(:/b.png);" << "border-image:url(:/b.png);";
    QTest::newRow("sheet without its last semicolon, found") << "b:2;a:1" << "a:3;" << "b:2;a:3;" << "a:3;";
    QTest::newRow("sheet without its last semicolon, the same value") << "a:1" << "a:1;" << "a:1;" << "a:1;";
    QTest::newRow("sheet without its last semicolon, not found") << "a:1" << "b:2;" << "a:1b:2;" << "b:2;";
    QTest::newRow("no colon in the addition") << "a:1;" << "b" << "a:1;b;" << "b;";
    QTest::newRow("no colon, so the name is all the rest") << "b;a:1;" << "b;c" << "b;a:1;b;c;" << "b;c;";
    QTest::newRow("name reaches over the semicolon to the next colon") << "b;c:1;" << "b;a:2;" << "b;c:1;b;a:2;" << "b;a:2;";
    QTest::newRow("unchanged at the end drops what was added") << "b:2;" << "a:1;b:2;" << "b:2;" << "a:1;b:2;";
    QTest::newRow("unchanged at the end drops what was replaced") << "a:1;b:2;" << "a:9;b:2;" << "a:1;b:2;" << "a:9;b:2;";
    QTest::newRow("unchanged drops what follows") << "a:1;" << "a:1;b:2;" << "a:1;" << "a:1;b:2;";
    QTest::newRow("unchanged in the middle") << "b:2;" << "a:1;b:2;c:3" << "b:2;" << "a:1;b:2;c:3;";
    QTest::newRow("unchanged inside another name") << "background-color:red;" << "margin:1px;color:red;" << "background-color:red;" << "margin:1px;color:red;";
    QTest::newRow("unchanged by its own earlier declaration") << "" << "a:1;a:1;" << "" << "a:1;a:1;";
}
// clang-format on

void test_stylesheet::merge_works_by_declaration()
{
    QFETCH(QString, present);
    QFETCH(QString, addition);
    QFETCH(QString, expected);
    QFETCH(QString, addition_after);
    QWidget widget;
    widget.setStyleSheet(present);
    stylesheet::merge(&widget, addition);
    QCOMPARE(widget.styleSheet(), expected);
    QCOMPARE(addition, addition_after);
}

void test_stylesheet::merge_that_ends_early_does_not_set_the_sheet_data()
{
    QTest::addColumn<QString>("addition");
    QTest::newRow("empty addition") << "";
    QTest::newRow("unchanged declaration") << "color:red;";
    QTest::newRow("unchanged declaration after another") << "margin:1px;color:red;";
}

void test_stylesheet::merge_that_ends_early_does_not_set_the_sheet()
{
    QFETCH(QString, addition);
    QWidget widget;
    widget.setStyleSheet("color:red;");
    const sheet_counter counter(widget);
    stylesheet::merge(&widget, addition);
    QCOMPARE(counter.changes, 0);
}

void test_stylesheet::merge_sets_the_sheet_once()
{
    QWidget widget;
    widget.setStyleSheet("color:red;");
    const sheet_counter counter(widget);
    QString addition = "margin:1px;color:blue;padding:1px;";
    stylesheet::merge(&widget, addition);
    QCOMPARE(counter.changes, 1);
}

KELVRA_WIDGET_TEST_MAIN(test_stylesheet)
#include "test_stylesheet.moc"
