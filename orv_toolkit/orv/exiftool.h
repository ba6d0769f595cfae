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
/// option -stay_open), and the requests that the program makes of it.
///
/// Lives on the GUI thread. A request is a run of lines on the child's standard input, one
/// argument a line, closed by "-execute"; the answer on its standard output ends in "{ready}".
/// Each request blocks until that marker has come, without a limit and without running the event
/// loop; a child that dies meanwhile leaves the caller waiting. Diagnostics go to the standard
/// streams, a line each; nothing here speaks to the user and nothing throws but a failed lock.
///
/// What goes down the pipe is encoded for the system's locale, what comes up is read as UTF-8. A
/// path or a value with a line end breaks the framing: nothing guards against it.
class exiftool : public QObject
{
    Q_OBJECT

    /// Keeps the constructor to `instance`, which make_shared couldn't reach if it were private.
    struct construction_key {
        explicit construction_key() = default;
    };

public:
    /// The one object, made at the first call, which starts the tool: "exiftool.exe" in the folder
    /// of the program. It is destroyed at the end of the process, which ends the tool; a signal
    /// inside of a request has the tool quit behind that request.
    static std::shared_ptr<exiftool> instance();

    /// Calls `action` each time that a part of a request has gone down to the tool: what it does
    /// then costs no time, since the tool works meanwhile. Calls it too when a part can't go down,
    /// and whenever a wait for the reply fails. `action` must make no request and run no event
    /// loop; an empty one ends the calls. Doesn't start the tool.
    static void set_request_sent(std::function<void()> action);

    /// For `instance` alone. A tool that can't be started is reported on the standard streams;
    /// from then on reads give no tags and writes seem to succeed.
    explicit exiftool(construction_key);

    /// Asks the tool to quit and waits up to five seconds for it; then it is killed. Does nothing
    /// if that was done already, at the end of the process.
    ~exiftool() override;

    /// All tags of a file, or what the tool's reply held of them: an unreadable file gives few or
    /// none, a tool that didn't start none.
    /// @param group_names  put the group of each tag before its name ("IFD0:ModifyDate")
    /// @param print_result  write the path and the tags to standard output as well
    tag_map read_tags(const QString &file, bool group_names, bool print_result);

    /// Writes the given tags into the file, in place and without a backup copy; an empty value
    /// removes its tag. False if the tool reported that the file wasn't updated due to errors; true
    /// for every other answer, a tool that didn't start included.
    bool write_tags(const QString &file, const tag_map &tags);

    /// The request of `write_tags`, with `tag_lines` as ready-made "-Name=Value" lines, each with
    /// its line end.
    bool execute_write(const QString &file, const QString &tag_lines);

    /// Sets "Software" and "CreatorTool" in `tags` to the program's signature.
    void add_software_tags(tag_map &tags);

    /// `tags`, read without groups, less those that the tool reports but can't write; without
    /// `keep_file_names` also less "FileName" and "Directory".
    tag_map copyable_tags(const tag_map &tags, bool keep_file_names);

    /// Writes the program's signature into the file, and nothing else.
    void stamp_software(const QString &file);

    /// Silences the warning of a slow reply and leaves standard error unread. Off at the start.
    void set_quiet(bool on);

private:
    /// What a request holds from its first step to its last.
    class request;

    /// Ends the tool at the end of the process also where the destructor doesn't run: a function
    /// that a signal interrupts never gives its pointer back. Inside of a request the tool is asked
    /// to quit, but not killed, however long it takes; a photo that it is writing would be cut
    /// short.
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
    bool started = false;      ///< stays true when the child dies later
    int exit_code = 0;         ///< only shown at the shut-down, as it stands
    int exit_status = 0;       ///< likewise
    const QString ready_marker;
    bool quiet = false;
    bool is_shut_down = false;
    std::atomic<bool> request_runs = false;  ///< a signal's handler asks for it
    std::mutex mutex;                        ///< held for each whole request with its reply
};

}  // namespace orv
