// SPDX-License-Identifier: GPL-3.0-or-later
//
// Runs requests to the metadata tool, as its arguments say, in a separate process: a test then sees
// from outside what the program writes to its standard streams and how it ends.
//
// usage: tool_session COMMAND ...
//   read PATH | read-plain PATH | read-print PATH   prints the tags, one per line
//   write PATH COUNT TAG=VALUE ...                  prints "result: true" or "result: false"
//   stamp PATH
//   load PATH                                       through exif_cache, prints the record
//   quiet on|off
//   tell-sent                                       from now on prints "sent" for each part of a
//                                                   request, see exiftool::set_request_sent
//   hold                                            keeps a pointer to the tool until the end
//   close | close-write                             closes the process object or its input
//   kill-tool | await-tool                          returns when the tool has ended
//   pause MS                                        runs the event loop meanwhile
//   exit                                            ends the process inside a function

#include "exif_cache.h"
#include "orv/exiftool.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QProcess>
#include <QTimer>

#include <cstdlib>
#include <iostream>
#include <memory>

namespace
{

std::shared_ptr<orv::exiftool> held_tool;

void print(const tag_map &tags)
{
    for (const auto &[name, value] : tags)
        std::cout << "tag: " << name << "=" << value << std::endl;
    std::cout << "tags: " << tags.size() << std::endl;
}

void pause_for(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

tag_map take_tags(QStringList &words)
{
    tag_map tags;
    for (int count = words.takeFirst().toInt(); count > 0; --count) {
        const QString word = words.takeFirst();
        const int equals = word.indexOf('=');
        tags[word.left(equals).toStdString()] = word.mid(equals + 1).toStdString();
    }
    return tags;
}

void run(QStringList &words)
{
    const QString verb = words.takeFirst();
    const auto tool = orv::exiftool::instance();
    auto *process = tool->findChild<QProcess *>();
    if (verb == "read")
        print(tool->read_tags(words.takeFirst(), true, false));
    else if (verb == "read-plain")
        print(tool->read_tags(words.takeFirst(), false, false));
    else if (verb == "read-print")
        tool->read_tags(words.takeFirst(), true, true);
    else if (verb == "write") {
        const QString path = words.takeFirst();
        const bool result = tool->write_tags(path, take_tags(words));
        std::cout << "result: " << (result ? "true" : "false") << std::endl;
    } else if (verb == "stamp")
        tool->stamp_software(words.takeFirst());
    else if (verb == "load") {
        const QString path = words.takeFirst();
        exif_cache::instance()->load(path.toStdString());
        print(exif_cache::instance()->record_copy(path));
    } else if (verb == "hold")
        held_tool = tool;
    else if (verb == "tell-sent")
        orv::exiftool::set_request_sent([] { std::cout << "sent" << std::endl; });
    else if (verb == "quiet")
        tool->set_quiet(words.takeFirst() == "on");
    else if (verb == "close")
        process->close();
    else if (verb == "close-write")
        process->closeWriteChannel();
    else if (verb == "kill-tool") {
        process->kill();
        process->waitForFinished();
    } else if (verb == "await-tool")
        process->waitForFinished();
    else if (verb == "pause")
        pause_for(words.takeFirst().toInt());
    else if (verb == "exit")
        std::exit(0);
    else
        qFatal("unknown command %s", qPrintable(verb));
}

}  // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QStringList words = QCoreApplication::arguments().mid(1);
    while (!words.isEmpty())
        run(words);
    return 0;
}
