// SPDX-License-Identifier: GPL-3.0-or-later

#include "core_test_main.h"
#include "exif_cache.h"
#include "qor/stacktrace.h"
#include "random_trial.h"
#include "scripted_tool.h"

#include <csignal>
#include <fcntl.h>
#include <optional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using texts = std::vector<std::string>;

// The two private steps of `load`: millions of requests to a tool would be too slow. An explicit
// instantiation may name private members.
void read_date(exif_cache &cache, const std::string &path, const std::string &value);
void read_iptc(exif_cache &cache, const std::string &path, const tag_map &tags);

template <auto date_step, auto iptc_step>
struct opened_steps {
    friend void read_date(exif_cache &cache, const std::string &path, const std::string &value)
    {
        (cache.*date_step)(path, value);
    }
    friend void read_iptc(exif_cache &cache, const std::string &path, const tag_map &tags)
    {
        (cache.*iptc_step)(path, tags);
    }
};
template struct opened_steps<&exif_cache::parse_recording_date, &exif_cache::parse_iptc>;

namespace
{

// A second implementation of how a record is made.

/// The parts of a date or a time. The last character always belongs to the last part, and empty
/// parts before that don't count.
texts parts_of(const std::string &text)
{
    texts parts;
    std::string part;
    for (std::size_t place = 0; place < text.size(); ++place) {
        const bool last = place + 1 == text.size();
        if (text[place] == ':' && !last) {
            if (!part.empty())
                parts.push_back(part);
            part.clear();
        } else {
            part += text[place];
        }
    }
    parts.push_back(part);
    return parts;
}

/// What a recording time adds to the record; nothing if it ends the program.
std::optional<tag_map> expected_date(const std::string &value)
{
    tag_map record;
    if (value.empty())
        return record;
    const std::size_t space = value.find_first_of(' ');
    const texts date = parts_of(value.substr(0, space));
    if (date.size() != 3)
        return std::nullopt;
    record = {{"rec_year", date[0]}, {"rec_month", date[1]}, {"rec_day", date[2]}};
    if (space == std::string::npos)
        return record;
    const texts time = parts_of(value.substr(space + 1));
    if (time.size() != 3)
        return std::nullopt;
    record.insert({{"rec_hour", time[0]}, {"rec_minute", time[1]}, {"rec_second", time[2]}});
    return record;
}

/// The text from the last `sign` on; empty if there is none.
std::string from_last(const std::string &text, char sign)
{
    std::string end;
    bool found = false;
    for (const char letter : text) {
        if (letter == sign) {
            found = true;
            end.clear();
        }
        if (found)
            end += letter;
    }
    return end;
}

tag_map expected_iptc(const tag_map &tags)
{
    const bool timed = tags.count("IPTC:TimeCreated") > 0;
    tag_map record = {{"has_iptc_date", tags.count("IPTC:DateCreated") > 0 ? "true" : "false"},
                      {"has_iptc_time", timed ? "true" : "false"},
                      {"ipct_timezone", ""}};
    const std::string time = timed ? tags.at("IPTC:TimeCreated") : "";
    const std::string plus = from_last(time, '+');
    const std::string zone = plus.empty() ? from_last(time, '-') : plus;
    if (!zone.empty())
        record["iptc_timezone"] = zone;
    return record;
}

/// The record of a photo with these tags; nothing if they end the program.
std::optional<tag_map> expected_record(const tag_map &tags)
{
    tag_map record = {{"has_data", "true"}};
    std::string value;
    if (tags.count("ExifIFD:DateTimeOriginal") > 0) {
        value = tags.at("ExifIFD:DateTimeOriginal");
    } else if (tags.count("IFD0:DateTimeOriginal") > 0) {
        value = tags.at("IFD0:DateTimeOriginal");
        record["DateTimeOriginalInIFD0"] = "true";
    }
    std::optional<tag_map> date = expected_date(value);
    if (!date)
        return std::nullopt;
    record.merge(*date);
    record.merge(expected_iptc(tags));
    return record;
}

// Inputs

const texts date_pieces = {":", ":", " ", "::", "0",  "05",   "2017",
                           ".", "+", "-", "T",  "\t", "\xff", std::string(1, '\0')};
const texts dates = {"2017:05:03 12:00:00",  "2017:05:03 12:00:00.25",    "2017:05:03",
                     "2017:05:03  12:00:00", "2017:05:03 12:00:00 +0200", "0000:00:00 00:00:00",
                     ":  :     :  :",        "2017:05:03 12:00:00+02:00", ""};
const texts zone_pieces = {"+", "-", "+-", ":", "0", "Z", " ", "\xff"};
const texts times = {
    "12:34:56+02:00", "12:34:56-05:00", "12:34:56", "2017-05-03", "+", "-", "12-3+4-5", ""};
const texts other_tags = {"ExifIFD:CreateDate", "IPTC:datecreated", "XMP-photoshop:DateCreated",
                          "TimeCreated"};

std::string random_date(random_source &random)
{
    return random.once_in(8) ? random.joined(date_pieces, 12)
                             : random.damaged(random.one_of(dates), date_pieces);
}

std::string random_time(random_source &random)
{
    return random.damaged(random.one_of(times), zone_pieces);
}

tag_map random_tags(random_source &random)
{
    tag_map tags;
    if (random.once_in(2))
        tags["ExifIFD:DateTimeOriginal"] = random_date(random);
    if (random.once_in(2))
        tags["IFD0:DateTimeOriginal"] = random_date(random);
    if (random.once_in(2))
        tags["IPTC:DateCreated"] = random_date(random);
    if (random.once_in(2))
        tags["IPTC:TimeCreated"] = random_time(random);
    if (random.once_in(2))
        tags[random.one_of(other_tags)] = random_date(random);
    return tags;
}

/// `value` without what a line of the tool's reply would change.
std::string fit_for_a_line(const std::string &value)
{
    QString letters;
    for (const char letter : value)
        if (letter >= ' ')
            letters += QChar(letter);
    return letters.trimmed().toStdString();
}

/// Whether reading the value makes a child process abort.
bool date_aborts(exif_cache &cache, const std::string &value)
{
    const pid_t child = fork();
    if (child == 0) {
        qor::stacktrace::instance();  // installs its handlers now, not later
        std::signal(SIGABRT, SIG_DFL);
        const rlimit no_core = {0, 0};
        setrlimit(RLIMIT_CORE, &no_core);
        dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
        read_date(cache, "x.jpg", value);
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT;
}

}  // namespace

class test_random_records : public QObject
{
    Q_OBJECT

private slots:
    void any_recording_date_is_split_into_texts();
    void any_iptc_time_gives_its_zone();
    void date_without_exactly_three_parts_ends_the_program();
    void any_tags_from_the_tool_make_a_record();

private:
    scripted_tool tool;
    const std::shared_ptr<exif_cache> cache = exif_cache::instance();
};

void test_random_records::any_recording_date_is_split_into_texts()
{
    random_trial trial;
    trial.repeat(1000000, [&](random_source &random) -> std::string {
        const std::string value = random_date(random);
        const std::optional<tag_map> expected = expected_date(value);
        if (!expected) {
            trial.note("ends the program");
            return {};
        }
        trial.note(value.empty() ? "empty" : expected->size() == 3 ? "date" : "date and time");
        trial.note_if(value.find("::") != std::string::npos, "empty part left out");
        trial.note_if(expected->size() == 6 && value.back() == ':', "colon at the end");
        cache->records.clear();
        read_date(*cache, "x.jpg", value);
        const tag_map actual = cache->record_copy("x.jpg");
        return actual == *expected ? std::string()
                                   : escaped(std::string_view(value)) + " gives " +
                                         escaped(actual) + ", not " + escaped(*expected);
    });
    const QByteArray complaint = trial.complaint({{"empty", 20000},
                                                  {"date", 50000},
                                                  {"date and time", 200000},
                                                  {"empty part left out", 20000},
                                                  {"colon at the end", 1000},
                                                  {"ends the program", 200000}});
    QVERIFY2(complaint.isEmpty(), complaint);
}

void test_random_records::any_iptc_time_gives_its_zone()
{
    random_trial trial;
    trial.repeat(1000000, [&](random_source &random) -> std::string {
        const tag_map tags = random_tags(random);
        const tag_map expected = expected_iptc(tags);
        const auto zone = expected.find("iptc_timezone");
        trial.note(tags.count("IPTC:TimeCreated") == 0 ? "no time"
                   : zone == expected.end()            ? "no zone"
                   : zone->second[0] == '+'            ? "plus"
                                                       : "minus");
        trial.note_if(zone != expected.end() && zone->second[0] == '+' &&
                          tags.at("IPTC:TimeCreated").find('-') != std::string::npos,
                      "both signs");
        cache->records.clear();
        read_iptc(*cache, "x.jpg", tags);
        const tag_map actual = cache->record_copy("x.jpg");
        return actual == expected
                   ? std::string()
                   : escaped(tags) + " give " + escaped(actual) + ", not " + escaped(expected);
    });
    const QByteArray complaint = trial.complaint({{"no time", 100000},
                                                  {"no zone", 50000},
                                                  {"plus", 50000},
                                                  {"minus", 50000},
                                                  {"both signs", 20000}});
    QVERIFY2(complaint.isEmpty(), complaint);
}

void test_random_records::date_without_exactly_three_parts_ends_the_program()
{
    random_trial trial;
    trial.repeat(100, [&](random_source &random) -> std::string {
        const std::string value = random_date(random);
        const bool ends = !expected_date(value);
        trial.note(ends ? "ends the program" : "goes on");
        return date_aborts(*cache, value) == ends
                   ? std::string()
                   : escaped(std::string_view(value)) + (ends ? " goes on" : " ends the program");
    });
    const QByteArray complaint = trial.complaint({{"ends the program", 20}, {"goes on", 20}});
    QVERIFY2(complaint.isEmpty(), complaint);
}

void test_random_records::any_tags_from_the_tool_make_a_record()
{
    random_trial trial;
    trial.repeat(3000, [&](random_source &random) -> std::string {
        tag_map tags = random_tags(random);
        QStringList lines;
        for (auto &[name, value] : tags) {
            value = fit_for_a_line(value);
            lines << QString::fromStdString(name + "=" + value);
        }
        const std::optional<tag_map> expected = expected_record(tags);
        if (!expected)
            return {};
        trial.note(expected->count("DateTimeOriginalInIFD0") > 0 ? "from IFD0" : "not from IFD0");
        trial.note(expected->count("rec_year") > 0 ? "with a time" : "without a time");
        tool.set_tags("photo.jpg", lines);
        cache->records.clear();
        cache->load("/photos/photo.jpg");
        const tag_map actual = cache->record_copy("/photos/photo.jpg");
        return actual == *expected && cache->raw_tags_of("/photos/photo.jpg") == tags
                   ? std::string()
                   : escaped(tags) + " give " + escaped(actual) + ", not " + escaped(*expected);
    });
    const QByteArray complaint = trial.complaint({{"from IFD0", 200},
                                                  {"not from IFD0", 500},
                                                  {"with a time", 500},
                                                  {"without a time", 200}});
    QVERIFY2(complaint.isEmpty(), complaint);
}

KELVRA_CORE_TEST_MAIN(test_random_records)
#include "test_random_records.moc"
