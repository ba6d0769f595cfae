// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDesktopServices>
#include <QList>
#include <QObject>
#include <QUrl>

/// While it exists, intercepts the addresses that the program passes to the system, so that no
/// browser is started.
class opened_urls : public QObject
{
    Q_OBJECT

public:
    opened_urls()
    {
        for (const char *scheme : schemes)
            QDesktopServices::setUrlHandler(scheme, this, "take");
    }

    ~opened_urls() override
    {
        for (const char *scheme : schemes)
            QDesktopServices::unsetUrlHandler(scheme);
    }

    QList<QUrl> urls;

public slots:
    void take(const QUrl &url) { urls << url; }

private:
    static constexpr const char *schemes[] = {"file", "http", "https", "mailto"};
};
