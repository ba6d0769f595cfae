// SPDX-License-Identifier: GPL-3.0-or-later
//
// Loads the photos of a folder in the real window and fixes them, with the real metadata tool.
//
// usage: batches FOLDER
//        batches FOLDER RAW_FOLDER REQUESTS
// REQUESTS is a recording of what the program sends in the first form. With it, the same requests
// also go through bare pipes to a second tool, for the photos of RAW_FOLDER. The two tools take
// turns, a few photos each, since a machine's speed drifts by more than the difference measured
// here. The first read starts a tool and isn't counted.

#include "orv/button_dark.h"
#include "orv/exiftool.h"
#include "orv/progress_dialog.h"
#include "program_window.h"
#include "raw_tool.h"
#include "readings.h"

#include <QDir>
#include <QFile>
#include <QProgressBar>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace
{

constexpr int block_size = 10;

QStringList photos_in(const QString &folder)
{
    const QDir dir(folder);
    QStringList paths;
    for (const QString &name : dir.entryList(QDir::Files, QDir::Name))
        paths << dir.absoluteFilePath(name);
    return paths;
}

/// The requests of a load and a fix: the first read, then a read for each photo, then a write for
/// each.
class bare_requests
{
public:
    bare_requests(const QString &file, const QString &folder, const QString &raw_folder)
        : tool(EXIFTOOL_PROGRAM)
    {
        QFile sent(file);
        if (!sent.open(QIODevice::ReadOnly))
            give_up("can't read the requests");
        const QByteArray end = "\n-execute\n";
        QByteArray bytes = sent.readAll();
        bytes.replace(folder.toLocal8Bit(), raw_folder.toLocal8Bit());
        if (!bytes.contains("\n" + raw_folder.toLocal8Bit() + "/"))
            give_up("these requests are for other photos");
        for (int at = bytes.indexOf(end); at != -1; at = bytes.indexOf(end)) {
            requests.push_back(bytes.left(at + end.size()).toStdString());
            bytes.remove(0, at + end.size());
        }
        send(1);
    }

    std::size_t left() const { return requests.size() - next; }

    void send(int count)
    {
        for (int i = 0; i < count; ++i)
            tool.answer(requests.at(next++));
    }

private:
    raw_tool tool;
    std::vector<std::string> requests;
    std::size_t next = 0;
};

/// Sends the bare requests in turn with a batch of the program, and measures the two separately.
class turns
{
public:
    turns(bare_requests *bare, const orv::progress_dialog &dialog, int photos)
        : bare(bare), photos(photos)
    {
        const auto *bar = dialog.findChild<QProgressBar *>();
        QObject::connect(bar, &QProgressBar::valueChanged, &context,
                         [this](int done) { take_turn(done); });
    }

    /// Runs the batch and reports its times without those of the bare requests.
    /// @param has_done_all  whether the batch has taken all photos
    void run(const std::string &name, const std::function<void()> &batch,
             const std::function<bool()> &has_done_all)
    {
        const double cpu = own_cpu_ms();
        const double start = now_ms();
        batch();
        const double end = now_ms();
        const double cpu_end = own_cpu_ms();
        if (!has_done_all() || (bare && served != photos))
            give_up("a photo was left out in the " + name);
        report(name + "_ms", (end - start - raw_ms) / photos);
        report(name + "_cpu_ms", (cpu_end - cpu - raw_cpu_ms) / photos);
        if (bare)
            report("raw_" + name + "_ms", raw_ms / photos);
    }

private:
    void take_turn(int done)
    {
        const int count = done == photos ? done - served : done / block_size * block_size - served;
        if (!bare || count <= 0)
            return;
        const double cpu = own_cpu_ms();
        const double start = now_ms();
        bare->send(count);
        raw_ms += now_ms() - start;
        raw_cpu_ms += own_cpu_ms() - cpu;
        served += count;
    }

    bare_requests *bare;
    int photos;
    int served = 0;
    double raw_ms = 0.0;
    double raw_cpu_ms = 0.0;
    QObject context;
};

}  // namespace

int main(int argc, char **argv)
{
    program_window program(argc, argv);
    const QStringList arguments = program.application.arguments();
    const QStringList photos = photos_in(arguments.value(1));
    if (photos.isEmpty())
        give_up("usage: batches FOLDER [RAW_FOLDER REQUESTS]");
    MainWindow &window = *program.window;
    std::unique_ptr<bare_requests> bare;
    if (arguments.size() > 3) {
        bare = std::make_unique<bare_requests>(arguments[3], arguments[1], arguments[2]);
        if (bare->left() != static_cast<std::size_t>(2 * photos.size()))
            give_up("these aren't the requests of these photos");
    }
    orv::exiftool::instance()->read_tags(photos.first(), true, false);

    turns(bare.get(), *window.progress_load, photos.size())
        .run(
            "load", [&] { window.load_files(photos); },
            [&] { return all_have_times(*window.model, photos.size()); });
    serve_events_for(200);
    program.enter_shift("hour", "1");
    serve_events_for(200);
    turns(bare.get(), *window.progress_fix, photos.size())
        .run(
            "fix", [&] { window.button_fix_time->click(); },
            [&] { return window.undo_map.size() == photos.size(); });
}
