// SPDX-License-Identifier: GPL-3.0-or-later

#include "qor/qt/stylesheet.h"
#include "random_trial.h"
#include "widget_test_main.h"

#include <QWidget>

#include <algorithm>

using qor::qt::stylesheet;
using texts = std::vector<std::string>;

namespace
{

// A second implementation of the reader: a state machine over the bytes.

void store(stylesheet::declarations &sheet, const std::string &name, const std::string &value,
           bool with_colon)
{
    if (with_colon && !name.empty() && !value.empty())
        sheet.insert_or_assign(name, value);
}

void read_into(stylesheet::declarations &sheet, const std::string &text)
{
    std::string name;
    std::string value;
    bool behind_colon = false;
    for (const char byte : text + ';') {
        if (byte == ';') {
            store(sheet, name, value, behind_colon);
            name.clear();
            value.clear();
            behind_colon = false;
        } else if (byte == ':' && !behind_colon) {
            behind_colon = true;
        } else {
            (behind_colon ? value : name) += byte;
        }
    }
}

std::string written(const std::map<std::string, stylesheet::declarations> &groups)
{
    std::string text;
    for (const auto &[selector, sheet] : groups) {
        std::string body;
        for (const auto &[name, value] : sheet)
            body += name + ":" + value + ";";
        const bool bare = selector.empty() || body.empty();
        text += bare ? body : selector + "{" + body + "}\n";
    }
    return text;
}

// A second implementation of the merge: the sheet and the rest of the addition are consumed from
// the front.

/// The text up to and including its first `end`; the whole text if there is none.
std::u16string through(const std::u16string &text, char16_t end)
{
    const auto place = std::find(text.begin(), text.end(), end);
    return {text.begin(), place == text.end() ? place : place + 1};
}

struct merged {
    std::u16string sheet;
    bool ended_early = false;
    int added = 0;
    int replaced = 0;
};

merged expected_merge(const std::u16string &before, std::u16string rest)
{
    merged result = {before};
    while (!rest.empty()) {
        const std::u16string declaration = through(rest, u';');
        const std::u16string name = through(rest, u':');
        const auto place =
            std::search(result.sheet.begin(), result.sheet.end(), name.begin(), name.end());
        if (place == result.sheet.end()) {
            result.sheet += declaration;
            ++result.added;
        } else {
            const std::u16string head(result.sheet.begin(), place);
            const std::u16string tail(place, result.sheet.end());
            const std::u16string old = through(tail, u';');
            if (old == declaration)
                return {before, true};
            result.sheet = head + declaration + tail.substr(old.size());
            ++result.replaced;
        }
        rest.erase(0, declaration.size());
    }
    return result;
}

// Inputs

const texts declarations = {
    "color:red;",  "color:blue;", "background-color:red;",
    "margin:1px;", "a:1;",        "b:2;",
    "a:2;",        " a:1;",       "border-image:url(:/gui/panel/border.png) 3 stretch;",
    "größe:ö😀;",   "color:;",     ":red;",
    "color;"};
const texts pieces = {";", ":",  ";;", "::", "a", "b",        "color",
                      " ", "\n", "{",  "}",  "1", "\xc3\xb6", "\xff"};

std::string random_sheet(random_source &random)
{
    if (random.once_in(4))
        return random.joined(pieces, 12);
    return random.damaged(random.joined(declarations, 5), pieces);
}

QString as_text(const std::string &bytes)
{
    return QString::fromUtf8(bytes.data(), static_cast<int>(bytes.size()));
}

}  // namespace

class test_random_sheets : public QObject
{
    Q_OBJECT

private slots:
    void any_sheet_is_read();
    void any_text_is_merged_over_a_sheet();
    void any_addition_is_merged();
};

void test_random_sheets::any_sheet_is_read()
{
    random_trial trial;
    trial.repeat(1000000, [&](random_source &random) -> std::string {
        const QString text = as_text(random_sheet(random));
        std::map<std::string, stylesheet::declarations> expected = {{"", {}}};
        read_into(expected[""], text.toUtf8().toStdString());
        const stylesheet sheet(text);
        trial.note(text.isEmpty()             ? "empty"
                   : expected[""].empty()     ? "nothing in it"
                   : expected[""].size() == 1 ? "one declaration"
                                              : "several declarations");
        const int pieces_between = text.count(';') + (text.endsWith(';') ? 0 : 1);
        trial.note_if(pieces_between > int(expected[""].size()), "piece left out");
        trial.note_if(written(expected).find("::") != std::string::npos, "value with a colon");
        if (sheet.groups == expected && sheet.to_string() == written(expected))
            return {};
        return escaped(text) + " gives " + escaped(sheet.to_string()) + ", not " +
               escaped(written(expected));
    });
    const QByteArray complaint = trial.complaint({{"empty", 20000},
                                                  {"nothing in it", 20000},
                                                  {"one declaration", 50000},
                                                  {"several declarations", 200000},
                                                  {"piece left out", 200000},
                                                  {"value with a colon", 5000}});
    QVERIFY2(complaint.isEmpty(), complaint);
}

void test_random_sheets::any_text_is_merged_over_a_sheet()
{
    random_trial trial;
    trial.repeat(500000, [&](random_source &random) -> std::string {
        const QString before = as_text(random_sheet(random));
        const std::string added = random_sheet(random);
        std::map<std::string, stylesheet::declarations> expected = {{"", {}}};
        read_into(expected[""], before.toUtf8().toStdString());
        const std::size_t count_before = expected[""].size();
        stylesheet sheet(before);
        if (random.once_in(4)) {
            read_into(expected["QLabel"], added);
            sheet.groups["QLabel"] = expected["QLabel"];
            trial.note("with a selector");
        }
        read_into(expected[""], added);
        sheet.set(added);
        trial.note(expected[""].size() > count_before ? "new names" : "no new name");
        if (sheet.groups == expected && sheet.to_string() == written(expected))
            return {};
        return escaped(added) + " over " + escaped(before) + " gives " +
               escaped(sheet.to_string()) + ", not " + escaped(written(expected));
    });
    const QByteArray complaint =
        trial.complaint({{"with a selector", 50000}, {"new names", 50000}, {"no new name", 50000}});
    QVERIFY2(complaint.isEmpty(), complaint);
}

void test_random_sheets::any_addition_is_merged()
{
    random_trial trial;
    QWidget widget;
    trial.repeat(1000000, [&](random_source &random) -> std::string {
        const QString before = as_text(random_sheet(random));
        const QString given = as_text(random_sheet(random));
        const QString ended = given.isEmpty() || given.endsWith(';') ? given : given + ';';
        const merged expected = expected_merge(before.toStdU16String(), ended.toStdU16String());
        trial.note_if(given.isEmpty(), "nothing to add");
        trial.note_if(given != ended, "semicolon added");
        trial.note_if(expected.ended_early, "ended early");
        trial.note_if(expected.added > 1, "several added");
        trial.note_if(expected.replaced > 1, "several replaced");
        widget.setStyleSheet(before);
        QString addition = given;
        stylesheet::merge(&widget, addition);
        if (widget.styleSheet().toStdU16String() == expected.sheet && addition == ended)
            return {};
        return escaped(given) + " into " + escaped(before) + " gives " +
               escaped(widget.styleSheet()) + ", not " +
               escaped(QString::fromStdU16String(expected.sheet)) + ", and becomes " +
               escaped(addition);
    });
    const QByteArray complaint = trial.complaint({{"nothing to add", 20000},
                                                  {"semicolon added", 100000},
                                                  {"ended early", 50000},
                                                  {"several added", 50000},
                                                  {"several replaced", 20000}});
    QVERIFY2(complaint.isEmpty(), complaint);
}

KELVRA_WIDGET_TEST_MAIN(test_random_sheets)
#include "test_random_sheets.moc"
