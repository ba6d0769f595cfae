// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/application_common.h"
#include "program_test_main.h"
#include "startup/language_setting.h"

#include <QDir>
#include <QFileDialog>
#include <QIcon>
#include <QMessageBox>
#include <QPalette>
#include <QPointer>
#include <QProxyStyle>
#include <QSettings>
#include <QStyle>
#include <QTemporaryDir>
#include <QTextCodec>
#include <QToolTip>

namespace
{

/// A platform style with its own tool tip delays.
class platform_style : public QProxyStyle
{
public:
    explicit platform_style(int wake_up_ms, int fall_asleep_ms)
        : wake_up_ms(wake_up_ms), fall_asleep_ms(fall_asleep_ms)
    {
    }

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *return_data) const override
    {
        if (hint == SH_ToolTip_WakeUpDelay)
            return wake_up_ms;
        if (hint == SH_ToolTip_FallAsleepDelay)
            return fall_asleep_ms;
        return QProxyStyle::styleHint(hint, option, widget, return_data);
    }

private:
    const int wake_up_ms;
    const int fall_asleep_ms;
};

/// Counts the catalogues that the application installs, since each is announced by an event, and
/// notes which texts are German at that time.
class language_changes : public QObject
{
public:
    language_changes() { qApp->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched == qApp && event->type() == QEvent::LanguageChange)
            note_change();
        return false;
    }

    int count = 0;
    QStringList german;

private:
    void note_change();
};

int hint_of(QStyle::StyleHint hint)
{
    return QApplication::style()->styleHint(hint);
}

QString program_text()
{
    return QCoreApplication::translate("MainWindow", "Load images");
}

QString kit_text()
{
    return QCoreApplication::translate("orv::dialog_about", "About");
}

QString qt_text()
{
    return QCoreApplication::translate("QPlatformTheme", "Cancel");
}

void language_changes::note_change()
{
    ++count;
    QStringList texts;
    if (qt_text() == "Abbrechen")
        texts << "Qt";
    if (program_text() == "Bilder Laden")
        texts << "program";
    if (kit_text() == "Über")
        texts << "kit";
    german << texts.join(' ');
}

}  // namespace

class test_program_setup : public QObject
{
    Q_OBJECT

private slots:
    void init() { clear_settings(); }
    void settings_are_stored_under_the_programs_name();
    void names_are_encoded_in_utf8();
    void tool_tips_appear_after_two_seconds_data();
    void tool_tips_appear_after_two_seconds();
    void tool_tip_really_waits_two_seconds();
    void application_owns_the_style();
    void widgets_without_a_sheet_are_dark_with_light_text();
    void windows_have_the_programs_icon();
    void message_boxes_have_icons_of_the_skin_data();
    void message_boxes_have_icons_of_the_skin();
    void icons_of_the_skin_come_before_those_of_the_desktop();
    void styles_delays_are_independent();
    void style_answers_other_hints_as_the_platform_does_data();
    void style_answers_other_hints_as_the_platform_does();
    void stored_language_is_used_unchanged_data();
    void stored_language_is_used_unchanged();
    void language_is_read_under_its_key();
    void default_language_isnt_stored();
    void missing_catalogues_leave_the_texts_english();
    void language_known_only_to_qt_leaves_the_program_english();
    void german_catalogues_are_installed();
};

void test_program_setup::settings_are_stored_under_the_programs_name()
{
    QCOMPARE(QCoreApplication::organizationName(), QString("Vorrin"));
    QVERIFY(!QCoreApplication::organizationDomain().isEmpty());
    QCOMPARE(QCoreApplication::applicationName(), QString("Kelvra"));
    QCOMPARE(QCoreApplication::applicationVersion(), QString("2.0.2"));
    const QSettings settings;
    QCOMPARE(settings.organizationName(), QString("Vorrin"));
    QCOMPARE(settings.applicationName(), QString("Kelvra"));
}

/// Without the program's set-up, the code page decides on Windows.
void test_program_setup::names_are_encoded_in_utf8()
{
    QTextCodec::setCodecForLocale(nullptr);
    set_name_encoding();
    const QString name = QString::fromUtf8("\xc3\xa4 \xd0\x96 \xe6\x97\xa5 \xf0\x9f\x98\x80.jpg");
    QCOMPARE(name.toLocal8Bit(), name.toUtf8());
}

void test_program_setup::tool_tips_appear_after_two_seconds_data()
{
    QTest::addColumn<int>("platform_delay_ms");
    QTest::addColumn<int>("platform_cooldown_ms");
    QTest::newRow("quick platform") << 100 << 777;
    QTest::newRow("slow platform") << 5000 << 12345;
    QTest::newRow("same delay") << 2000 << 2000;
}

void test_program_setup::tool_tips_appear_after_two_seconds()
{
    QFETCH(int, platform_delay_ms);
    QFETCH(int, platform_cooldown_ms);
    QApplication::setStyle(new platform_style(platform_delay_ms, platform_cooldown_ms));
    install_style();
    QCOMPARE(hint_of(QStyle::SH_ToolTip_WakeUpDelay), 2000);
    QCOMPARE(hint_of(QStyle::SH_ToolTip_FallAsleepDelay), platform_cooldown_ms);
}

/// Qt could ask another style for the delay. Only a lower limit is checked, so a slow computer
/// can't fail this.
void test_program_setup::tool_tip_really_waits_two_seconds()
{
    install_style();
    QWidget widget;
    widget.setToolTip("what it is for");
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    QElapsedTimer clock;
    clock.start();
    QTest::mouseMove(&widget, widget.rect().center());
    QTRY_VERIFY(QToolTip::isVisible());
    QVERIFY2(clock.elapsed() >= 1900, qPrintable(QString::number(clock.elapsed())));
    QToolTip::hideText();
}

void test_program_setup::application_owns_the_style()
{
    install_style();
    const QPointer<QStyle> first = QApplication::style();
    QVERIFY(qobject_cast<orv::proxy_style *>(first));
    install_style();
    QVERIFY(first.isNull());
}

void test_program_setup::widgets_without_a_sheet_are_dark_with_light_text()
{
    install_style();
    const QPalette palette = QFileDialog().palette();
    const auto lightness = [&palette](QPalette::ColorRole role) {
        return palette.color(QPalette::Active, role).lightness();
    };
    constexpr int readable_distance = 100;
    QVERIFY(lightness(QPalette::WindowText) - lightness(QPalette::Window) > readable_distance);
    QVERIFY(lightness(QPalette::Text) - lightness(QPalette::Base) > readable_distance);
    QVERIFY(lightness(QPalette::ButtonText) - lightness(QPalette::Button) > readable_distance);
    QVERIFY(lightness(QPalette::Highlight) - lightness(QPalette::HighlightedText) >
            readable_distance);
}

void test_program_setup::windows_have_the_programs_icon()
{
    install_icons();
    const QWidget window;
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
        const QPixmap drawn(QString(":/program_icon/kelvra-%1.png").arg(size));
        QCOMPARE(window.windowIcon().pixmap(size, size).toImage(), drawn.toImage());
    }
}

void test_program_setup::message_boxes_have_icons_of_the_skin_data()
{
    QTest::addColumn<QMessageBox::Icon>("icon");
    QTest::newRow("error") << QMessageBox::Critical;
    QTest::newRow("information") << QMessageBox::Information;
    QTest::newRow("question") << QMessageBox::Question;
    QTest::newRow("warning") << QMessageBox::Warning;
}

void test_program_setup::message_boxes_have_icons_of_the_skin()
{
    QFETCH(QMessageBox::Icon, icon);
    install_icons();
    const QMessageBox box(icon, "Title", "Text");
    const QPixmap drawn(QString(":/icons/orv/48x48/dialog-%1.png").arg(QTest::currentDataTag()));
    QVERIFY(!drawn.isNull());
    QCOMPARE(box.iconPixmap().toImage(), drawn.toImage());
}

void test_program_setup::icons_of_the_skin_come_before_those_of_the_desktop()
{
    const QTemporaryDir themes;
    QVERIFY(QDir(themes.path()).mkpath("desktop/48x48"));
    QFile index(themes.filePath("desktop/index.theme"));
    QVERIFY(index.open(QIODevice::WriteOnly));
    index.write("[Icon Theme]\nName=desktop\nDirectories=48x48\n[48x48]\nSize=48\n");
    index.close();
    QImage red(48, 48, QImage::Format_RGB32);
    red.fill(Qt::red);
    for (const char *name : {"dialog-question", "user-trash"})
        QVERIFY(red.save(themes.filePath(QString("desktop/48x48/%1.png").arg(name))));
    QIcon::setThemeSearchPaths({themes.path(), ":/icons"});
    QIcon::setThemeName("desktop");

    install_icons();
    const auto colour = [](const char *name) {
        return QIcon::fromTheme(name).pixmap(48, 48).toImage().pixelColor(24, 10);
    };
    QCOMPARE(colour("user-trash"), QColor(Qt::red));
    QVERIFY(colour("dialog-question") != QColor(Qt::red));
}

void test_program_setup::styles_delays_are_independent()
{
    orv::proxy_style style(nullptr);
    QVERIFY(QMetaObject::invokeMethod(&style, "set_tooltip_delay", Q_ARG(int, 11)));
    QVERIFY(QMetaObject::invokeMethod(&style, "set_tooltip_cooldown", Q_ARG(int, 22)));
    QCOMPARE(style.tooltip_delay, 11);
    QCOMPARE(style.tooltip_cooldown, 22);
    QCOMPARE(style.styleHint(QStyle::SH_ToolTip_WakeUpDelay), 11);
    QCOMPARE(style.styleHint(QStyle::SH_ToolTip_FallAsleepDelay), 22);
}

void test_program_setup::style_answers_other_hints_as_the_platform_does_data()
{
    QTest::addColumn<int>("hint");
    QTest::newRow("tool tip label's opacity") << int(QStyle::SH_ToolTipLabel_Opacity);
    QTest::newRow("tool tip's mask") << int(QStyle::SH_ToolTip_Mask);
    QTest::newRow("message box's text") << int(QStyle::SH_MessageBox_TextInteractionFlags);
    QTest::newRow("combo box's popup") << int(QStyle::SH_ComboBox_Popup);
    QTest::newRow("scroll bar's click") << int(QStyle::SH_ScrollBar_LeftClickAbsolutePosition);
}

void test_program_setup::style_answers_other_hints_as_the_platform_does()
{
    QFETCH(int, hint);
    const orv::proxy_style style(nullptr);
    const QProxyStyle plain(nullptr);
    const auto asked = static_cast<QStyle::StyleHint>(hint);
    QCOMPARE(style.styleHint(asked), plain.styleHint(asked));
}

void test_program_setup::stored_language_is_used_unchanged_data()
{
    QTest::addColumn<QString>("stored");
    QTest::newRow("German") << "de";
    QTest::newRow("English") << "en";
    QTest::newRow("without a catalogue") << "fr";
    QTest::newRow("no language at all") << " Klingon ";
}

void test_program_setup::stored_language_is_used_unchanged()
{
    QFETCH(QString, stored);
    QSettings().setValue("lang", stored);
    QCOMPARE(language_setting("lang"), stored);
    QCOMPARE(QSettings().value("lang").toString(), stored);
}

void test_program_setup::language_is_read_under_its_key()
{
    QSettings().setValue("lang", "de");
    QSettings().setValue("other", "fr");
    QCOMPARE(language_setting("other"), QString("fr"));
    QCOMPARE(language_setting("missing"), QString("en"));
}

void test_program_setup::default_language_isnt_stored()
{
    QCOMPARE(language_setting("lang"), QString("en"));
    QCOMPARE(QSettings().allKeys(), QStringList());
}

void test_program_setup::missing_catalogues_leave_the_texts_english()
{
    const language_changes changes;
    install_translators("xx");
    QCOMPARE(changes.count, 0);
    QCOMPARE(program_text(), QString("Load images"));
    QCOMPARE(kit_text(), QString("About"));
    QCOMPARE(qt_text(), QString("Cancel"));
}

void test_program_setup::language_known_only_to_qt_leaves_the_program_english()
{
    install_translators("fr");
    QCOMPARE(program_text(), QString("Load images"));
    QCOMPARE(kit_text(), QString("About"));
}

void test_program_setup::german_catalogues_are_installed()
{
    const language_changes changes;
    install_translators("de");
    QCOMPARE(changes.german, QStringList({"Qt", "Qt program", "Qt program kit"}));
}

KELVRA_PROGRAM_TEST_MAIN(test_program_setup)
#include "test_program_setup.moc"
