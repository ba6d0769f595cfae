// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialog_settings.h"

#include "orv/combobox.h"
#include "orv/dialog_width.h"
#include "orv/panel.h"
#include "startup/language_setting.h"

#include <QGridLayout>
#include <QIcon>
#include <QLabel>

namespace
{

/// A language of the program with its native name, which isn't translated.
struct language {
    const char *name;
    const char *code;  ///< as stored in the settings
};

constexpr language languages[] = {{"Deutsch", "de"}, {"English", "en"}};

constexpr int max_visible_languages = 5;
constexpr int min_language_width_px = 100;
constexpr int margin_px = 10;
constexpr int horizontal_spacing_px = 4;
constexpr int vertical_spacing_px = 8;

/// Any language other than German counts as English.
int current_language_index(const orv::combobox &box)
{
    const bool is_german = language_setting(language_key) == "de";
    return box.findData(is_german ? "de" : "en");
}

}  // namespace

dialog_settings::dialog_settings(QWidget *parent) : QDialog(parent)
{
    setWindowTitle(tr("Settings"));
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    auto *panel = new orv::panel;
    panel->set_up(make_content(), QString());
    grid->addWidget(panel, 0, 0);
    setFixedSize(orv::dialog_width(sizeHint().width()), sizeHint().height());
}

QWidget *dialog_settings::make_content()
{
    auto *content = new QWidget;
    auto *grid = new QGridLayout(content);
    grid->setContentsMargins(margin_px, margin_px, margin_px, margin_px);
    grid->setHorizontalSpacing(horizontal_spacing_px);
    grid->setVerticalSpacing(vertical_spacing_px);
    auto *label = new QLabel(tr("Language:"));
    orv::combobox *box = make_language_box();
    label->setBuddy(box);
    grid->addWidget(label, 0, 0);
    grid->addWidget(box, 0, 1);
    return content;
}

orv::combobox *dialog_settings::make_language_box()
{
    auto *box = new orv::combobox;
    box->setStyleSheet(QLatin1String(orv::combobox::sheet));
    for (const language &each : languages)
        box->insertItem(box->count(), QIcon(), QString::fromUtf8(each.name),
                        QLatin1String(each.code));
    box->setMaxVisibleItems(max_visible_languages);
    box->setMinimumWidth(min_language_width_px);
    box->setCurrentIndex(current_language_index(*box));
    // Connected after the initial selection, which isn't a choice of the user.
    connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            [this, box] { settings.setValue(language_key, box->currentData().toString()); });
    return box;
}
