// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoreApplication>
#include <QTranslator>

/// Installs both German catalogues for its lifetime.
class german_catalogues
{
public:
    german_catalogues()
    {
        if (!program.load(":/translations/de") || !kit.load(":/translations/toolkit_de"))
            qFatal("no catalogues");
        QCoreApplication::installTranslator(&program);
        QCoreApplication::installTranslator(&kit);
    }

private:
    QTranslator program;
    QTranslator kit;
};
