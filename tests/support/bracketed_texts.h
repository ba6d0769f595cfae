// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoreApplication>
#include <QTranslator>

/// While it exists, every text that goes through `tr` appears in brackets, so that a test sees
/// which texts are translated, whatever the catalogues hold.
class bracketed_texts : public QTranslator
{
public:
    bracketed_texts() { QCoreApplication::installTranslator(this); }

    bool isEmpty() const override { return false; }

    QString translate(const char *, const char *source, const char *, int) const override
    {
        return "[" + QString::fromUtf8(source) + "]";
    }
};
