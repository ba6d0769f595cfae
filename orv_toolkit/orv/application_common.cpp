// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/application_common.h"

namespace orv
{

proxy_style::~proxy_style() = default;

int proxy_style::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                           QStyleHintReturn *return_data) const
{
    if (hint == QStyle::SH_ToolTip_WakeUpDelay)
        return tooltip_delay;
    if (hint == QStyle::SH_ToolTip_FallAsleepDelay)
        return tooltip_cooldown;
    return QProxyStyle::styleHint(hint, option, widget, return_data);
}

void proxy_style::set_tooltip_delay(int delay)
{
    tooltip_delay = delay;
}

void proxy_style::set_tooltip_cooldown(int delay)
{
    tooltip_cooldown = delay;
}

}  // namespace orv
