// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "qor/trace_scope.h"

#include <QApplication>
#include <QProxyStyle>

namespace orv
{

/// The application object. It also passes its events to the main window, since a system sends its
/// requests to open a file to the application. Its constructor and `event` have a frame on the
/// stack of source locations.
/// @tparam MainWindowClass  a QMainWindow with a public `event`
template <class MainWindowClass>
class application : public QApplication
{
public:
    application(int &argc, char **argv) : QApplication(argc, argv)
    {
        // The first frame of all, so it installs the signal handlers.
        const qor::trace_scope frame("orv_toolkit/orv/application_common", 19,
                                     "orv::application<MainWindowClass>::application(int&, char**) "
                                     "[with MainWindowClass = MainWindow]");
    }

    /// Like QApplication, but a visible main window gets the event first; its result is ignored.
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

/// The platform's style with different times for tool tips.
class proxy_style : public QProxyStyle
{
    Q_OBJECT

public:
    using QProxyStyle::QProxyStyle;
    ~proxy_style() override;

    int styleHint(StyleHint hint, const QStyleOption *option = nullptr,
                  const QWidget *widget = nullptr,
                  QStyleHintReturn *return_data = nullptr) const override;

    int tooltip_delay = 0;     ///< milliseconds until a tool tip appears
    int tooltip_cooldown = 0;  ///< milliseconds until the delay applies again

public slots:
    /// Sets `tooltip_delay`, in milliseconds.
    void set_tooltip_delay(int delay);

    /// Sets `tooltip_cooldown`, in milliseconds.
    void set_tooltip_cooldown(int delay);
};

}  // namespace orv
