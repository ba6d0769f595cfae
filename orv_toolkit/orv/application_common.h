// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "qor/trace_scope.h"

#include <QApplication>
#include <QProxyStyle>

namespace orv
{

/// The application object: passes the events that it gets on to the main window too, since that is
/// where a system sends the files to open, and stands on the stack of source places while it works.
/// @tparam MainWindowClass  a QMainWindow with a public `event`
template <class MainWindowClass>
class application : public QApplication
{
public:
    application(int &argc, char **argv) : QApplication(argc, argv)
    {
        // The first frame of all: it brings the signal handlers up.
        const qor::trace_scope frame("orv_toolkit/orv/application_common", 19,
                                     "orv::application<MainWindowClass>::application(int&, char**) "
                                     "[with MainWindowClass = MainWindow]");
    }

    /// As QApplication; a visible main window sees the event first, and what it answers is ignored.
    bool event(QEvent *e) override
    {
        const qor::trace_scope frame("orv_toolkit/orv/application_common", 24,
                                     "bool orv::application<MainWindowClass>::event(QEvent*) "
                                     "[with MainWindowClass = MainWindow]");
        if (main_window && main_window->isVisible())
            main_window->event(e);
        return QApplication::event(e);
    }

    MainWindowClass *main_window = nullptr;  ///< borrowed; null until the window has been built
};

/// The platform's style with other times for tool tips.
class proxy_style : public QProxyStyle
{
    Q_OBJECT

public:
    using QProxyStyle::QProxyStyle;
    ~proxy_style() override;

    int styleHint(StyleHint hint, const QStyleOption *option = nullptr,
                  const QWidget *widget = nullptr,
                  QStyleHintReturn *return_data = nullptr) const override;

    int tooltip_delay = 0;     ///< milliseconds until a tool tip shows
    int tooltip_cooldown = 0;  ///< milliseconds until a tool tip falls asleep

public slots:
    void set_tooltip_delay(int delay);
    void set_tooltip_cooldown(int delay);
};

}  // namespace orv
