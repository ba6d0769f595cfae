// SPDX-License-Identifier: GPL-3.0-or-later

#include "core_test_main.h"
#include "is_white_space.h"
#include "orv/tag_reply.h"
#include "random_trial.h"

using texts = std::vector<std::string>;

namespace
{

// A second implementation of the reader: one pass over the UTF-16 units, with a state for the part
// of the line.

std::u16string trimmed_text(const std::u16string &text)
{
    std::size_t first = 0;
    std::size_t last = text.size();
    while (first < last && is_white_space(text[first]))
        ++first;
    while (last > first && is_white_space(text[last - 1]))
        --last;
    return text.substr(first, last - first);
}

void append_code(std::string &bytes, char32_t code)
{
    const auto byte = [&](char32_t bits) { bytes += static_cast<char>(bits); };
    if (code < 0x80) {
        byte(code);
    } else if (code < 0x800) {
        byte(0xc0 | code >> 6);
        byte(0x80 | (code & 0x3f));
    } else if (code < 0x10000) {
        byte(0xe0 | code >> 12);
        byte(0x80 | (code >> 6 & 0x3f));
        byte(0x80 | (code & 0x3f));
    } else {
        byte(0xf0 | code >> 18);
        byte(0x80 | (code >> 12 & 0x3f));
        byte(0x80 | (code >> 6 & 0x3f));
        byte(0x80 | (code & 0x3f));
    }
}

/// `text` in UTF-8, with "?" for each unpaired surrogate.
std::string utf8(const std::u16string &text)
{
    std::string bytes;
    for (std::size_t place = 0; place < text.size(); ++place) {
        const char32_t unit = text[place];
        const bool high = unit >= 0xd800 && unit < 0xdc00;
        const char32_t next = place + 1 < text.size() ? text[place + 1] : 0;
        if (high && next >= 0xdc00 && next < 0xe000) {
            append_code(bytes, 0x10000 + ((unit - 0xd800) << 10) + (next - 0xdc00));
            ++place;
        } else {
            append_code(bytes, unit >= 0xd800 && unit < 0xe000 ? U'?' : unit);
        }
    }
    return bytes;
}

struct line_parts {
    std::u16string name;
    std::u16string value;
    int equals_signs = 0;
};

tag_map tags_of(const QString &reply, random_trial &trial)
{
    tag_map tags;
    line_parts line;
    for (const char16_t unit : reply.toStdU16String() + u'\n') {
        if (unit == u'\n') {
            if (line.equals_signs > 0) {
                const std::string name =
                    utf8(trimmed_text(line.name.substr(line.name.empty() ? 0 : 1)));
                trial.note_if(name.empty(), "empty name");
                trial.note_if(tags.count(name) > 0, "same name again");
                tags[name] = utf8(trimmed_text(line.value));
                trial.note_if(tags[name].empty(), "empty value");
                trial.note_if(line.equals_signs > 1, "value cut short");
                trial.note_if(line.value != trimmed_text(line.value), "spaces at its ends");
                trial.note_if(line.name.find(u"{ready}") != std::u16string::npos, "marked line");
            }
            trial.note_if(line.equals_signs == 0, "line without an equals sign");
            line = {};
        } else if (unit == u'=') {
            ++line.equals_signs;
        } else if (line.equals_signs == 0) {
            line.name += unit;
        } else if (line.equals_signs == 1) {
            line.value += unit;
        }
    }
    return tags;
}

// Inputs

const texts lines = {"-ExifIFD:DateTimeOriginal=2017:05:03 12:00:00\n",
                     "-IPTC:TimeCreated=12:34:56+02:00\n",
                     "-Comment=a=b=c\n",
                     "-Comment=\n",
                     "- A B \t= x y \t\n",
                     "-A=1\r\n",
                     "-A=2\n",
                     "further line\n",
                     "x=y\n",
                     "-Artist=größer 日 😀\n",
                     "😀=half a letter goes\n",
                     "{ready}\n",
                     "{ready}=x\n"};
const texts pieces = {"=",
                      "==",
                      "\n",
                      "\n\n",
                      " ",
                      "\t",
                      "\r",
                      "-",
                      ":",
                      "{ready}",
                      "a",
                      "\x0b",
                      "ö",
                      "😀",
                      "\xc2\xa0",
                      "\xe3\x80\x80",
                      "\xe2\x80\x8b",
                      "\xc2\x85"};

QString random_reply(random_source &random)
{
    std::string bytes = random.once_in(4) ? random.joined(pieces, 20) : random.joined(lines, 5);
    bytes = random.damaged(bytes + (random.once_in(2) ? "{ready}\n" : ""), pieces);
    QString reply = random.once_in(8) ? QString::fromLatin1(bytes.data(), int(bytes.size()))
                                      : QString::fromUtf8(bytes.data(), int(bytes.size()));
    if (!reply.isEmpty() && random.once_in(8))
        reply[int(random.below(std::size_t(reply.size())))] =
            QChar(0xd700 + ushort(random.below(0x1000)));
    return reply;
}

}  // namespace

class test_random_replies : public QObject
{
    Q_OBJECT

private slots:
    void any_reply_is_split_into_tags();
};

void test_random_replies::any_reply_is_split_into_tags()
{
    random_trial trial;
    trial.repeat(1000000, [&](random_source &random) -> std::string {
        const QString reply = random_reply(random);
        const tag_map expected = tags_of(reply, trial);
        const tag_map actual = orv::parse_tag_reply(reply);
        trial.note(expected.empty() ? "no tags" : expected.size() > 2 ? "many tags" : "few tags");
        if (actual == expected)
            return {};
        return escaped(reply) + " gives " + escaped(actual) + ", not " + escaped(expected);
    });
    const QByteArray complaint = trial.complaint({{"no tags", 50000},
                                                  {"few tags", 200000},
                                                  {"many tags", 100000},
                                                  {"empty name", 50000},
                                                  {"empty value", 50000},
                                                  {"same name again", 50000},
                                                  {"value cut short", 50000},
                                                  {"spaces at its ends", 50000},
                                                  {"marked line", 20000},
                                                  {"line without an equals sign", 500000}});
    QVERIFY2(complaint.isEmpty(), complaint);
}

KELVRA_CORE_TEST_MAIN(test_random_replies)
#include "test_random_replies.moc"
