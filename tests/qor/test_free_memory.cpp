// SPDX-License-Identifier: GPL-3.0-or-later

#include "qor/free_memory.h"

#include <QFile>
#include <QtTest>

#include <unistd.h>

#include <memory>
#include <vector>

namespace
{

/// The resident memory of this process in bytes (proc(5), statm).
qint64 resident_bytes()
{
    QFile statm("/proc/self/statm");
    if (!statm.open(QIODevice::ReadOnly))
        qFatal("no figures of this process");
    return statm.readAll().split(' ').at(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

}  // namespace

class test_free_memory : public QObject
{
    Q_OBJECT

private slots:
    void memory_below_a_used_block_is_given_to_the_system();
};

void test_free_memory::memory_below_a_used_block_is_given_to_the_system()
{
    constexpr qint64 piece_count = 200000;
    constexpr std::size_t piece_bytes = 300;
    std::vector<std::unique_ptr<char[]>> pieces(piece_count);
    for (auto &piece : pieces)
        piece = std::make_unique<char[]>(piece_bytes);
    const std::unique_ptr<char[]> last = std::make_unique<char[]>(piece_bytes);
    const qint64 full = resident_bytes();
    for (auto &piece : pieces)
        piece.reset();
    qor::return_free_memory();
    const qint64 returned = full - resident_bytes();
    QVERIFY2(returned > piece_count * static_cast<qint64>(piece_bytes) / 2,
             qPrintable(QString::number(returned)));
}

QTEST_APPLESS_MAIN(test_free_memory)
#include "test_free_memory.moc"
