// SPDX-License-Identifier: GPL-3.0-or-later
//
// A plugin that reports on file descriptor 3 when the first window of a program has been painted.
// Qt loads it if QT_QPA_GENERIC_PLUGINS names it and QT_PLUGIN_PATH leads to it.

#include <QCoreApplication>
#include <QEvent>
#include <QGenericPlugin>
#include <QTimer>
#include <QWidget>

#include <unistd.h>

namespace
{

constexpr int watcher_descriptor = 3;

/// Tells the watcher when the painting is done and sent to the screen.
class paint_teller : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const auto *widget = qobject_cast<QWidget *>(watched);
        if (event->type() == QEvent::Paint && widget && widget->isWindow()) {
            QCoreApplication::instance()->removeEventFilter(this);
            QTimer::singleShot(0, this, [] {
                if (write(watcher_descriptor, "painted", 7) == 7)
                    close(watcher_descriptor);
            });
        }
        return QObject::eventFilter(watched, event);
    }
};

}  // namespace

class first_paint : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "first_paint.json")

public:
    QObject *create(const QString &, const QString &) override
    {
        auto *teller = new paint_teller(QCoreApplication::instance());
        QCoreApplication::instance()->installEventFilter(teller);
        return teller;
    }
};

#include "first_paint.moc"
