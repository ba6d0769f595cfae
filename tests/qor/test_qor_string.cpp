// SPDX-License-Identifier: GPL-3.0-or-later

#include "qor/array.h"
#include "qor/string.h"

#include <QtTest>

#include <set>
#include <string>
#include <vector>

using qor::string;

namespace
{

QStringList shown(const std::vector<string> &pieces)
{
    QStringList texts;
    for (const string &piece : pieces)
        texts << QString::fromStdString(piece);
    return texts;
}

QStringList shown(const char *text, char separator, int limit)
{
    QStringList texts;
    string::split(
        text, separator,
        [&](qor::array<char> &piece) { texts << QString::fromUtf8(piece.data, piece.length); },
        limit);
    return texts;
}

}  // namespace

class test_qor_string : public QObject
{
    Q_OBJECT

private slots:
    void character_cuts_data();
    void character_cuts();
    void character_hands_each_piece_to_the_callback_data();
    void character_hands_each_piece_to_the_callback();
    void callback_gets_views_over_the_text();
    void separator_text_cuts_data();
    void separator_text_cuts();
    void separator_text_cuts_by_default_without_a_limit();
    void search_gives_the_last_character_of_the_match_data();
    void search_gives_the_last_character_of_the_match();
    void join_puts_the_separator_between_data();
    void join_puts_the_separator_between();
    void join_takes_a_set_in_its_order();
    void array_over_a_part_does_not_free_it();
    void owning_array_moves_its_elements();
    void string_is_a_standard_string();
};

// clang-format off
void test_qor_string::character_cuts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("limit");
    QTest::addColumn<QStringList>("pieces");
    QTest::newRow("empty text gives one empty piece") << "" << 0 << QStringList{""};
    QTest::newRow("empty text with a limit") << "" << 1 << QStringList{""};
    QTest::newRow("no separator") << "abc" << 0 << QStringList{"abc"};
    QTest::newRow("each separator") << "a b c" << 0 << QStringList{"a", "b", "c"};
    QTest::newRow("first separator only") << "a b c" << 1 << QStringList{"a", "b c"};
    QTest::newRow("two separators only") << "a b c d" << 2 << QStringList{"a", "b", "c d"};
    QTest::newRow("limit above the count") << "a b c" << 5 << QStringList{"a", "b", "c"};
    QTest::newRow("limit below zero is none") << "a b c" << -1 << QStringList{"a", "b", "c"};
    QTest::newRow("leading separator") << " a" << 0 << QStringList{"", "a"};
    QTest::newRow("leading separator takes the limit") << " a" << 1 << QStringList{"", "a"};
    QTest::newRow("leading separator uses the limit up") << " a b" << 1 << QStringList{"", "a b"};
    QTest::newRow("empty pieces count") << "a  b" << 0 << QStringList{"a", "", "b"};
    QTest::newRow("empty remainder") << "a " << 0 << QStringList{"a", ""};
    QTest::newRow("empty remainder after the limit") << "a " << 1 << QStringList{"a", ""};
    QTest::newRow("separator alone") << " " << 0 << QStringList{"", ""};
}
// clang-format on

void test_qor_string::character_cuts()
{
    QFETCH(QString, text);
    QFETCH(int, limit);
    QTEST(shown(string::split(text.toStdString(), ' ', limit)), "pieces");
}

void test_qor_string::character_hands_each_piece_to_the_callback_data()
{
    character_cuts_data();
}

void test_qor_string::character_hands_each_piece_to_the_callback()
{
    QFETCH(QString, text);
    QFETCH(int, limit);
    QTEST(shown(text.toUtf8().constData(), ' ', limit), "pieces");
}

void test_qor_string::callback_gets_views_over_the_text()
{
    const string text = "ab cd";
    std::vector<std::ptrdiff_t> offsets;
    string::split(
        text, ' ',
        [&](qor::array<char> &piece) {
            QVERIFY(!piece.owned);
            offsets.push_back(piece.data - text.data());
        },
        0);
    QCOMPARE(offsets, std::vector<std::ptrdiff_t>({0, 3}));
}

// clang-format off
void test_qor_string::separator_text_cuts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("separator");
    QTest::addColumn<int>("limit");
    QTest::addColumn<bool>("quotes");
    QTest::addColumn<bool>("keep_empty");
    QTest::addColumn<QStringList>("pieces");
    QTest::newRow("date") << "2017:05:03" << ":" << 0 << false << false << QStringList{"2017", "05", "03"};
    QTest::newRow("leading separator") << ":05:03" << ":" << 0 << false << false << QStringList{"05", "03"};
    QTest::newRow("doubled separator") << "2017::05:03" << ":" << 0 << false << false << QStringList{"2017", "05", "03"};
    QTest::newRow("separator at the end doesn't cut") << "2017:05:" << ":" << 0 << false << false << QStringList{"2017", "05:"};
    QTest::newRow("separator alone doesn't cut") << ":" << ":" << 0 << false << false << QStringList{":"};
    QTest::newRow("no separator") << "2017" << ":" << 0 << false << false << QStringList{"2017"};
    QTest::newRow("two separators alone") << "::" << ":" << 0 << false << false << QStringList{":"};
    QTest::newRow("three separators alone") << ":::" << ":" << 0 << false << false << QStringList{":"};

    QTest::newRow("empty text gives one empty piece") << "" << ":" << 0 << false << false << QStringList{""};
    QTest::newRow("empty text with all options") << "" << ":" << 1 << true << true << QStringList{""};
    QTest::newRow("empty text, empty separator") << "" << "" << 0 << false << false << QStringList{""};
    QTest::newRow("empty separator doesn't cut") << "abc" << "" << 0 << false << false << QStringList{"abc"};

    QTest::newRow("kept leading empty piece") << ":05:03" << ":" << 0 << false << true << QStringList{"", "05", "03"};
    QTest::newRow("kept empty piece between") << "2017::05" << ":" << 0 << false << true << QStringList{"2017", "", "05"};
    QTest::newRow("kept pieces, separator at the end") << "2017::" << ":" << 0 << false << true << QStringList{"2017", ":"};

    QTest::newRow("limit: remainder is as long as the text after its own separator")
        << "a:bc:def" << ":" << 1 << false << false << QStringList{"a", "bc:d"};
    QTest::newRow("limit: remainder without a separator is whole") << "a:bcd" << ":" << 1 << false << false << QStringList{"a", "bcd"};
    QTest::newRow("limit of two") << "a:b:c:d" << ":" << 2 << false << false << QStringList{"a", "b", "c:"};
    QTest::newRow("limit above the count") << "a:b:c" << ":" << 9 << false << false << QStringList{"a", "b", "c"};
    QTest::newRow("limit below zero is none") << "a:b:c" << ":" << -1 << false << false << QStringList{"a", "b", "c"};
    QTest::newRow("dropped piece counts as a cut") << ":a:b" << ":" << 1 << false << false << QStringList{"a:"};

    QTest::newRow("apostrophes protect") << "a:'b:c':d" << ":" << 0 << true << false << QStringList{"a", "'b:c'", "d"};
    QTest::newRow("double quotes protect") << "a:\"b:c\":d" << ":" << 0 << true << false << QStringList{"a", "\"b:c\"", "d"};
    QTest::newRow("either quote closes the other") << "a:'b\":c:d" << ":" << 0 << true << false << QStringList{"a", "'b\"", "c", "d"};
    QTest::newRow("open quote protects to the end") << "a:'b:c:d" << ":" << 0 << true << false << QStringList{"a", "'b:c:d"};
    QTest::newRow("quotes are text by default") << "a:'b:c':d" << ":" << 0 << false << false << QStringList{"a", "'b", "c'", "d"};

    QTest::newRow("long separator leaves its head and skips a character")
        << "a--b--c" << "--" << 0 << false << false << QStringList{"a-", "-", ""};
    QTest::newRow("long separator may run past the end") << "a---b" << "---" << 0 << false << false << QStringList{"a--", ""};
    QTest::newRow("long separator in a run of its characters")
        << "ab--xx-----yy" << "--" << 0 << false << false << QStringList{"ab-", "x-", "-", "y"};
}
// clang-format on

void test_qor_string::separator_text_cuts()
{
    QFETCH(QString, text);
    QFETCH(QString, separator);
    QFETCH(int, limit);
    QFETCH(bool, quotes);
    QFETCH(bool, keep_empty);
    const string cutter = separator.toStdString();
    QTEST(shown(string::split(text.toStdString(), cutter, limit, quotes, keep_empty)), "pieces");
}

void test_qor_string::separator_text_cuts_by_default_without_a_limit()
{
    QCOMPARE(shown(string::split("':a:':b::c", string(":"))),
             QStringList({"'", "a", "'", "b", "c"}));
}

// clang-format off
void test_qor_string::search_gives_the_last_character_of_the_match_data()
{
    constexpr quint64 none = string::npos;
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("separator");
    QTest::addColumn<quint64>("from");
    QTest::addColumn<bool>("quotes");
    QTest::addColumn<quint64>("found");
    QTest::newRow("one character") << "a:b" << ":" << quint64(0) << false << quint64(1);
    QTest::newRow("several characters") << "ab--c" << "--" << quint64(0) << false << quint64(3);
    QTest::newRow("at the position itself") << "a:b" << ":" << quint64(1) << false << quint64(1);
    QTest::newRow("not before the position") << "a:b:c" << ":" << quint64(2) << false << quint64(3);
    QTest::newRow("absent") << "abc" << ":" << quint64(0) << false << none;
    QTest::newRow("match on the last character") << "ab:" << ":" << quint64(0) << false << none;
    QTest::newRow("long match on the last character") << "ab--" << "--" << quint64(0) << false << none;
    QTest::newRow("half a match at the end") << "ab-" << "--" << quint64(0) << false << none;
    QTest::newRow("at the end") << "a:b" << ":" << quint64(3) << false << none;
    QTest::newRow("past the end") << "a:b" << ":" << quint64(7) << false << none;
    QTest::newRow("empty text") << "" << ":" << quint64(0) << false << none;
    QTest::newRow("NUL isn't past the end") << "ab" << QString(QChar::Null) << quint64(0) << false << none;
    QTest::newRow("empty separator") << "abc" << "" << quint64(2) << false << quint64(1);
    QTest::newRow("empty separator from the start") << "abc" << "" << quint64(0) << false << none;
    QTest::newRow("empty separator at the end") << "abc" << "" << quint64(3) << false << none;
    QTest::newRow("empty separator past the end") << "abc" << "" << quint64(9) << false << none;
    QTest::newRow("mismatch starts again") << "-a--b" << "--" << quint64(0) << false << quint64(3);
    QTest::newRow("search doesn't go back into a started match") << "aabc" << "ab" << quint64(0) << false << none;
    QTest::newRow("started match beside a whole one") << "aabxabc" << "ab" << quint64(0) << false << quint64(5);
    QTest::newRow("between apostrophes") << "':'b" << ":" << quint64(0) << true << none;
    QTest::newRow("between double quotes") << "\":\"b" << ":" << quint64(0) << true << none;
    QTest::newRow("after the quotes") << "':':b" << ":" << quint64(0) << true << quint64(3);
    QTest::newRow("quotes not requested") << "':'b" << ":" << quint64(0) << false << quint64(1);
    QTest::newRow("position inside quotes counts as outside") << "'a:b'c" << ":" << quint64(1) << true << quint64(2);
    QTest::newRow("closing quote can be the separator") << "'a'b" << "'" << quint64(0) << true << quint64(2);
    QTest::newRow("quotes inside a match end it") << "-'x'-b" << "--" << quint64(0) << true << none;
}
// clang-format on

void test_qor_string::search_gives_the_last_character_of_the_match()
{
    QFETCH(QString, text);
    QFETCH(QString, separator);
    QFETCH(quint64, from);
    QFETCH(bool, quotes);
    const string searched = text.toStdString();
    QTEST(quint64(searched.find_outside_quotes(separator.toStdString(), from, quotes)), "found");
}

void test_qor_string::join_puts_the_separator_between_data()
{
    QTest::addColumn<QStringList>("parts");
    QTest::addColumn<QString>("joined");
    QTest::newRow("none") << QStringList() << "";
    QTest::newRow("one") << QStringList{"a"} << "a";
    QTest::newRow("several") << QStringList{"b", "a", "c"} << "b,a,c";
    QTest::newRow("empty ones count") << QStringList{"", "a", ""} << ",a,";
    QTest::newRow("one empty") << QStringList{""} << "";
}

void test_qor_string::join_puts_the_separator_between()
{
    QFETCH(QStringList, parts);
    std::vector<string> strings;
    for (const QString &part : parts)
        strings.push_back(part.toStdString());
    QTEST(QString::fromStdString(string::join(strings, ',')), "joined");
}

void test_qor_string::join_takes_a_set_in_its_order()
{
    const std::set<string> strings = {"b", "a", "c"};
    QCOMPARE(string::join(strings, ' '), string("a b c"));
    QCOMPARE(string::join(std::set<string>(), ' '), string());
}

void test_qor_string::array_over_a_part_does_not_free_it()
{
    char text[] = "abcd";
    {
        const qor::array<char> part(text + 1, 2, false);
        QCOMPARE(part.length, 2);
        QCOMPARE(part[0], 'b');
        QCOMPARE(std::string(part.begin(), part.end()), std::string("bc"));
        part[1] = 'x';
    }
    QCOMPARE(std::string(text), std::string("abxd"));
}

void test_qor_string::owning_array_moves_its_elements()
{
    qor::array<string> first(new string[2]{"a", "b"}, 2, true);
    qor::array<string> second(std::move(first));
    QVERIFY(!first.owned);
    QCOMPARE(first.length, 0);
    QVERIFY(second.owned);
    QCOMPARE(second[1], string("b"));
    qor::array<string> third;
    third = std::move(second);
    QCOMPARE(third.length, 2);
    QCOMPARE(third[0], string("a"));
}

void test_qor_string::string_is_a_standard_string()
{
    const std::string plain = "a:b";
    const string kit = plain;
    QCOMPARE(kit + ":c", std::string("a:b:c"));
    QCOMPARE(kit.find(':'), std::size_t(1));
    const string empty;
    QCOMPARE(empty.size(), std::size_t(0));
}

QTEST_APPLESS_MAIN(test_qor_string)
#include "test_qor_string.moc"
