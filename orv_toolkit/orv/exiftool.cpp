// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/exiftool.h"

#include "orv/tag_catalogue.h"
#include "orv/tag_reply.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStringList>

#include <cstring>
#include <iostream>
#include <utility>

namespace orv
{

namespace
{

constexpr int start_timeout_ms = 2000;
constexpr int reply_wait_ms = 1000;
constexpr int quit_timeout_ms = 5000;
constexpr int max_write_tries = 11;
constexpr char failed_update_text[] = "files weren't updated due to errors";

QString program_path()
{
    return QCoreApplication::applicationDirPath() + QDir::separator() + "exiftool.exe";
}

/// The bytes as UTF-8, up to the first NUL.
QString text_of(const QByteArray &bytes)
{
    return QString::fromUtf8(bytes.constData());
}

void print_line(const std::string &text)
{
    std::cout << text << std::endl;
}

/// Like `trimmed().endsWith(marker)`, without the copy.
bool ends_with_marker(const QByteArray &bytes, const QByteArray &marker)
{
    static const char white_space[] = " \t\n\v\f\r";
    int end = bytes.size();
    while (end > 0 && std::strchr(white_space, bytes[end - 1]) && bytes[end - 1] != '\0')
        --end;
    return end >= marker.size() &&
           std::memcmp(bytes.constData() + end - marker.size(), marker.constData(),
                       static_cast<std::size_t>(marker.size())) == 0;
}

/// Waits up to a second for output of the tool; returns whether there is some. On Windows, Qt
/// sleeps during a wait, first for 10 ms and then twice as long each time, so short waits make it
/// notice the output earlier. (Qt's source: QIncrementalSleepTimer, used by qprocess_win.cpp.)
bool wait_for_output(QProcess &tool)
{
#ifdef Q_OS_WIN
    const QDeadlineTimer end(reply_wait_ms);
    while (!tool.waitForReadyRead(1)) {
        if (end.hasExpired() || tool.state() == QProcess::NotRunning)
            return false;
    }
    return true;
#else
    return tool.waitForReadyRead(reply_wait_ms);
#endif
}

std::function<void()> on_request_sent;  ///< outlives the tool, which uses it until its end

void tell_request_sent()
{
    if (on_request_sent)
        on_request_sent();
}

void print_tags(const QString &file, const tag_map &tags)
{
    std::cout << file.toStdString() << " {";
    const char *separator = "";
    for (const auto &[name, value] : tags) {
        std::cout << separator << "{'" << name << "','" << value << "'}";
        separator = ", \n";
    }
    std::cout << "}" << std::endl;
}

}  // namespace

class exiftool::request
{
public:
    explicit request(exiftool &tool) : lock(tool.mutex), tool(tool) { tool.request_runs = true; }
    ~request() { tool.request_runs = false; }

    request(const request &) = delete;
    request &operator=(const request &) = delete;

private:
    const std::lock_guard<std::mutex> lock;
    exiftool &tool;
};

std::shared_ptr<exiftool> exiftool::instance()
{
    static const std::shared_ptr<exiftool> tool = std::make_shared<exiftool>(construction_key());
    static const end_of_process_guard guard{tool};
    return tool;
}

exiftool::end_of_process_guard::~end_of_process_guard()
{
    if (!tool->request_runs)
        tool->shut_down();
    else if (tool->proc->state() != QProcess::NotRunning)
        tool->quits_in_time();
}

void exiftool::set_request_sent(std::function<void()> action)
{
    on_request_sent = std::move(action);
}

exiftool::exiftool(construction_key) : ready_marker(QLatin1String(ready_text))
{
    const QString path = program_path();
    if (!QFileInfo::exists(path))
        std::cerr << "Exiftool executable " << path.toStdString() << " does not exist..."
                  << std::endl;

    // The child reads its arguments from standard input; those after -common_args apply to every
    // request.
    const QStringList arguments = {"-stay_open",   "True",  "-@", "-",
                                   "-common_args", "-args", "-f", "-sort"};
    proc = new QProcess(this);
    connect(
        proc, &QProcess::readyReadStandardError, this, [this] { relay_standard_error(); },
        Qt::DirectConnection);
    connect(proc, &QProcess::bytesWritten, this, tell_request_sent);
    connect(proc, &QProcess::errorOccurred, this, tell_request_sent);
    proc->setReadChannel(QProcess::StandardOutput);
    proc->start(path, arguments, QIODevice::ReadWrite | QIODevice::Text | QIODevice::Unbuffered);
    started = proc->waitForStarted(start_timeout_ms);
    if (!started)
        print_line("Error: Could not start Exiftool...");
    // If left open, the process object would accept written bytes although nothing reads them.
    if (!started && proc->state() == QProcess::NotRunning)
        proc->close();
}

exiftool::~exiftool()
{
    if (!is_shut_down)
        shut_down();
}

void exiftool::shut_down()
{
    is_shut_down = true;
    if (proc->state() == QProcess::NotRunning) {
        print_line("Exiftool is not running... It exited with code " + std::to_string(exit_code) +
                   " and status is " + std::to_string(exit_status));
        return;
    }
    connect(
        proc, &QProcess::readyRead, this, [this] { relay_exit_output(); }, Qt::DirectConnection);
    if (!quits_in_time()) {
        print_line("Exiftool didn't quit in time. Killing it.");
        proc->kill();
        proc->waitForFinished();  // Qt warns of a process that outlives its object
    }
}

tag_map exiftool::read_tags(const QString &file, bool group_names, bool print_result)
{
    const request running(*this);
    if (!started)
        return {};
    QString lines = QLatin1String(group_names ? "-G1\n" : "");
    lines += "\n%1\n-execute\n";
    write_to_proc(lines.arg(file));
    tag_map tags = parse_tag_reply(read_until_ready());
    if (print_result)
        print_tags(file, tags);
    return tags;
}

bool exiftool::write_tags(const QString &file, const tag_map &tags)
{
    QString lines;
    for (const auto &[name, value] : tags)
        lines += "-" + QString::fromStdString(name) + "=" + QString::fromStdString(value) + "\n";
    return execute_write(file, lines);
}

bool exiftool::execute_write(const QString &file, const QString &tag_lines)
{
    const request running(*this);
    QString lines = QString("\n%1\n-overwrite_original_in_place\n-m\n").arg(file);
    lines += tag_lines;
    lines += "-execute\n";
    write_to_proc(lines);
    return read_until_ready().indexOf(failed_update_text) == -1;
}

void exiftool::add_software_tags(tag_map &tags)
{
    const std::string signature =
        QString("%1 - %2")
            .arg(QCoreApplication::organizationName(), QCoreApplication::applicationName())
            .toStdString();
    tags["Software"] = signature;
    tags["CreatorTool"] = signature;
}

tag_map exiftool::copyable_tags(const tag_map &tags, bool keep_file_names)
{
    static const std::string file_name_tags[] = {"FileName", "Directory"};
    tag_map copyable = tags;
    for (const std::string &name : tag_catalogue)
        copyable.erase(name);
    if (!keep_file_names) {
        for (const std::string &name : file_name_tags)
            copyable.erase(name);
    }
    return copyable;
}

void exiftool::stamp_software(const QString &file)
{
    tag_map tags;
    add_software_tags(tags);
    write_tags(file, tags);
}

void exiftool::set_quiet(bool on)
{
    quiet = on;
}

bool exiftool::quits_in_time()
{
    on_request_sent = nullptr;  // the windows are gone or won't be used again
    write_to_proc("-stay_open\nFalse\n");
    return proc->waitForFinished(quit_timeout_ms);
}

/// Each attempt offers the whole length again, starting after the bytes that the earlier attempts
/// have counted; a failed one counts as -1. The margins keep that range inside the buffer.
void exiftool::write_to_proc(const QString &text)
{
    const QByteArray bytes = text.toLocal8Bit();
    const int wanted = bytes.size();
    const QByteArray offered =
        QByteArray(max_write_tries, '\0') + bytes + QByteArray(bytes.size(), '\0');
    int written = 0;
    int tries = 0;
    do {
        const char *data = offered.constData() + max_write_tries + written;
        // For a write to a closed device, Qt would also print a warning to standard error.
        const int result = proc->isOpen() ? static_cast<int>(proc->write(data, wanted)) : -1;
        if (result == -1)
            print_line("[write_to_proc] proc->write() failed (rc=-1)");
        written += result;
        ++tries;
    } while (written < wanted && tries < max_write_tries);
    if (written != wanted)
        print_line("[write_to_proc] Could not write all required data to exiftool pipe. Wrote: " +
                   std::to_string(written) + ". Wanted: " + std::to_string(wanted) + "!");
}

QString exiftool::read_until_ready()
{
    if (!started) {
        print_line("Uh oh...");
        return {};
    }
    const QByteArray marker = ready_marker.toLocal8Bit();
    QByteArray reply;
    do {
        if (wait_for_output(*proc)) {
            reply += proc->readAll();
            continue;
        }
        tell_request_sent();
        if (!quiet)
            print_line("Warning: Exiftool didn't supply any data in the last 1000 msec.");
    } while (!ends_with_marker(reply, marker));
    return text_of(reply);
}

void exiftool::relay_standard_error()
{
    if (!quiet)
        print_line("[exiftool cerr] '" + text_of(proc->readAllStandardError()).toStdString() + "'");
}

void exiftool::relay_exit_output()
{
    print_line("[exiftool2] exit data: '" + text_of(proc->readAll()).toStdString() + "'");
}

}  // namespace orv
