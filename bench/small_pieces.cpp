// SPDX-License-Identifier: GPL-3.0-or-later
//
// Measures the small functions that a load, a preview, a sort and a fix use, each on its own.

#include "core/batch_plan.h"
#include "core/to_int.h"
#include "exif_cache.h"
#include "orv/tag_reply.h"
#include "qor/string.h"
#include "startup/program_setup.h"
#include "table_data_model.h"

#include <QApplication>

#include <benchmark/benchmark.h>

namespace
{

constexpr int photo_count = 10000;
constexpr int tag_count = 150;
constexpr int scattered = 7919;  ///< the step to the next photo, so that it isn't near

QString path_of(int photo)
{
    return QString("/home/user/Pictures/2017 Summer trip/camera/IMG_%1.JPG")
        .arg(photo, 5, 10, QLatin1Char('0'));
}

QString reply()
{
    QString text = "-ExifIFD:DateTimeOriginal=2017:05:03 12:00:00\n"
                   "-ExifIFD:CreateDate=2017:05:03 12:00:00\n"
                   "-IFD0:ModifyDate=2017:05:03 12:00:00\n"
                   "-IPTC:DateCreated=2017:05:03\n"
                   "-IPTC:TimeCreated=12:00:00+02:00\n";
    for (int i = 5; i < tag_count; ++i)
        text += QString("-Camera:CustomFunction%1=Evaluative metering %1\n").arg(i);
    return text + "{ready}\n";
}

const tag_map record = {
    {"has_data", "true"},  {"has_iptc_date", "true"},   {"has_iptc_time", "true"},
    {"ipct_timezone", ""}, {"iptc_timezone", "+02:00"}, {"rec_day", "03"},
    {"rec_hour", "12"},    {"rec_minute", "00"},        {"rec_month", "05"},
    {"rec_second", "00"},  {"rec_year", "2017"}};

/// A model with many photos, as after a load.
table_data_model &loaded_model()
{
    static table_data_model model(nullptr);
    if (model.files.isEmpty()) {
        model.display_format = "dd.MM.yyyy HH:mm:ss";
        for (int photo = 0; photo < photo_count; ++photo) {
            model.files << path_of(photo);
            exif_cache::instance()->records[path_of(photo).toStdString()] = record;
        }
    }
    return model;
}

void read_reply(benchmark::State &state)
{
    const QString text = reply();
    for (auto _ : state)
        benchmark::DoNotOptimize(orv::parse_tag_reply(text));
}
BENCHMARK(read_reply);

void take_recording_time(benchmark::State &state)
{
    const table_data_model &model = loaded_model();
    int row = 0;
    for (auto _ : state) {
        row = (row + scattered) % photo_count;
        benchmark::DoNotOptimize(model.recording_time(model.files[row]));
    }
}
BENCHMARK(take_recording_time);

void make_local_time(benchmark::State &state)
{
    int day = 0;
    for (auto _ : state) {
        day = (day + 1) % 28;
        benchmark::DoNotOptimize(
            QDateTime(QDate(2017, 5, day + 1), QTime(12, 0, 0), Qt::LocalTime));
    }
}
BENCHMARK(make_local_time);

void read_number(benchmark::State &state)
{
    const std::string text = "2017";
    for (auto _ : state)
        benchmark::DoNotOptimize(to_int(text, 0));
}
BENCHMARK(read_number);

void show_new_time(benchmark::State &state)
{
    const table_data_model &model = loaded_model();
    int row = 0;
    for (auto _ : state) {
        row = (row + scattered) % photo_count;
        benchmark::DoNotOptimize(
            model.index(row, table_data_model::new_recording_time_column).data());
    }
}
BENCHMARK(show_new_time);

void plan_fix(benchmark::State &state)
{
    const tag_map tags = orv::parse_tag_reply(reply());
    const QDateTime new_time(QDate(2017, 5, 3), QTime(13, 0, 0), Qt::LocalTime);
    for (auto _ : state)
        benchmark::DoNotOptimize(fix_tags({tags, record}, new_time, false, 0.0));
}
BENCHMARK(plan_fix);

void remember_for_undo(benchmark::State &state)
{
    const tag_map tags = orv::parse_tag_reply(reply());
    for (auto _ : state)
        benchmark::DoNotOptimize(undo_entries({tags, record}));
}
BENCHMARK(remember_for_undo);

void split_time(benchmark::State &state)
{
    const std::string time = "12:00:00";
    for (auto _ : state)
        benchmark::DoNotOptimize(qor::string::split(time, ":"));
}
BENCHMARK(split_time);

}  // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
