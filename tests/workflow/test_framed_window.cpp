// SPDX-License-Identifier: GPL-3.0-or-later

#include "centred_place.h"
#include "orv/dialog_about.h"
#include "program_test_main.h"
#include "when_modal.h"
#include "window_actions.h"

/// The window in a window manager's frame, which has a title bar only at the top.
class test_framed_window : public QObject
{
    Q_OBJECT

private slots:
    void about_is_centred_over_the_windows_contents();
};

void test_framed_window::about_is_centred_over_the_windows_contents()
{
    const std::unique_ptr<MainWindow> window = open_window();
    QTRY_VERIFY(window->frameGeometry().center().y() != window->geometry().center().y());
    QRect place;
    const when_modal<orv::dialog_about> user(
        [&place](orv::dialog_about &dialog) { place = dialog.geometry(); });
    click(window->button_about);
    QVERIFY(user.answered());
    QCOMPARE(place, centred_place(window->geometry(), place.size()));
}

KELVRA_PROGRAM_TEST_MAIN(test_framed_window)
#include "test_framed_window.moc"
