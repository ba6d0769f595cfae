// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "orv/tag_map.h"

#include <QObject>
#include <QString>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>

class QProcess;

namespace orv
{

/// The metadata tool, run as one long-lived child process in its stay-open mode (exiftool(1),
/// option -stay_open), and the requests that the program sends to it.
///
/// Lives on the GUI thread. A request is a series of lines on the child's standard input, one
/// argument per line, the last one "-execute"; the reply on its standard output ends in "{ready}".
/// Each request blocks until that marker has arrived, without a time limit and without running the
/// event loop. Note: if the child dies meanwhile, the caller waits forever. Diagnostics go to the
/// standard streams, one line each. Nothing here shows anything to the user, and only a failed lock
/// throws.
///
/// Requests are encoded for the system's locale, replies are read as UTF-8. Requires: no path or
/// value contains a line end, which would break the format; nothing checks this.
class exiftool : public QObject
{
    Q_OBJECT

    /// Reserves the constructor for `instance`; if it were private, make_shared couldn't call it.
    struct construction_key {
        explicit construction_key() = default;
    };

public:
    /// The only instance. The first call creates it and starts the tool: "exiftool.exe" in the
    /// folder of the program. It is destroyed when the process ends, and that ends the tool; after
    /// a signal during a request the tool finishes the request, then quits.
    static std::shared_ptr<exiftool> instance();

    /// Calls `action` from now on each time that a part of a request has been sent to the tool:
    /// what it does then costs no time, since the tool works meanwhile. Also calls it when a part
    /// can't be sent, and whenever a wait for the reply fails. An empty `action` ends the calls.
    /// Doesn't start the tool. Requires: `action` makes no request and runs no event loop.
    static void set_request_sent(std::function<void()> action);

    /// Only for `instance`. A tool that can't be started is reported on the standard streams. Note:
    /// from then on reads give no tags, and writes seem to succeed.
    explicit exiftool(construction_key);

    /// Asks the tool to quit, waits up to five seconds for it, then kills it. Does nothing if that
    /// has been done already, at the end of the process.
    ~exiftool() override;

    /// All tags of a file, as far as the tool's reply contains them: few or none for an unreadable
    /// file, none if the tool didn't start.
    /// @param group_names  put the group of each tag before its name ("IFD0:ModifyDate")
    /// @param print_result  write the path and the tags to standard output as well
    tag_map read_tags(const QString &file, bool group_names, bool print_result);

    /// Writes the given tags into the file, in place and without a backup copy; an empty value
    /// removes its tag. False if the tool reported that the file wasn't updated due to errors; true
    /// for every other reply. Note: also true if the tool didn't start.
    bool write_tags(const QString &file, const tag_map &tags);

    /// Like `write_tags`, with the tags as complete "-Name=Value" lines, each with its line end.
    bool execute_write(const QString &file, const QString &tag_lines);

    /// Sets "Software" and "CreatorTool" in `tags` to the program's signature.
    void add_software_tags(tag_map &tags);

    /// `tags` without those that the tool reports but can't write; if `keep_file_names` is false,
    /// also without "FileName" and "Directory". Requires: the tags were read without groups.
    tag_map copyable_tags(const tag_map &tags, bool keep_file_names);

    /// Writes the program's signature into the file, and nothing else.
    void stamp_software(const QString &file);

    /// If on, slow replies cause no warning, and the tool's standard error isn't read. Off at the
    /// start.
    void set_quiet(bool on);

private:
    /// Locks the tool, and marks it as busy, from the first step of a request to the last.
    class request;

    /// Ends the tool when the process ends, even if the destructor doesn't run: a function that is
    /// interrupted by a signal never releases its pointer. During a request the tool is asked to
    /// quit but not killed, however long it takes; killing it could cut short a photo that it is
    /// writing.
    struct end_of_process_guard {
        const std::shared_ptr<exiftool> &tool;
        ~end_of_process_guard();
    };

    void shut_down();
    bool quits_in_time();
    void write_to_proc(const QString &text);
    QString read_until_ready();
    void relay_standard_error();
    void relay_exit_output();

    QProcess *proc = nullptr;  ///< child of this
    bool started = false;      ///< stays true if the child dies later
    int exit_code = 0;         ///< only printed at the shut-down; never set
    int exit_status = 0;       ///< the same
    const QString ready_marker;
    bool quiet = false;
    bool is_shut_down = false;
    std::atomic<bool> request_runs = false;  ///< read when a signal ends the process
    std::mutex mutex;                        ///< held during each request, until its reply is read
};

}  // namespace orv
