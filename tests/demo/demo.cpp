// SPDX-License-Identifier: GPL-3.0-or-later
//
// The demonstration: makes three photos, takes them through load, preview, fix, reload and undo in
// the real main window, and checks the files after each step with a separate ExifTool.
//
// usage: kelvra_demo FOLDER    saves pictures of the steps there; exits 0 only if all agrees

#include "MainWindow.h"
#include "drop.h"
#include "drop_files_widget.h"
#include "main_window_form.h"
#include "orv/application_common.h"
#include "orv/button_dark.h"
#include "orv/lineedit.h"
#include "orv/message_box.h"
#include "private_home.h"
#include "sample_photos.h"
#include "startup/program_setup.h"
#include "table_data_model.h"

#include <QAbstractButton>
#include <QDir>
#include <QTimer>
#include <QtTest>

#include <cstdio>

namespace
{

const QStringList shown_tags = {"ExifIFD:DateTimeOriginal", "ExifIFD:CreateDate",
                                "IFD0:ModifyDate",          "XMP-photoshop:DateCreated",
                                "IPTC:DateCreated",         "IPTC:TimeCreated",
                                "System:FileModifyDate"};
const char date_time_format[] = "yyyy:MM:dd hh:mm:ss";
const char typed_hours[] = "1";
const char typed_zone[] = "2";

using photo_values = QMap<QString, QString>;  ///< shown tag to value
using folder_values = QMap<QString, photo_values>;

/// What the table's preview promises for a photo.
struct preview {
    QString text;
    QDateTime time;
    QString zone;
};

struct steps {
    folder_values before;
    QMap<QString, preview> previews;
    folder_values after;
    folder_values undone;
};

void say(const QString &text)
{
    std::printf("%s\n", qPrintable(text));
    std::fflush(stdout);
}

void make_photos(const QDir &folder)
{
    make_jpeg(folder.filePath("beach.jpg"),
              {"ExifIFD:DateTimeOriginal=2017:05:03 12:00:00",
               "ExifIFD:CreateDate=2017:05:03 12:00:00", "IFD0:ModifyDate=2017:06:01 08:30:00",
               "IPTC:DateCreated=2017:05:03", "IPTC:TimeCreated=12:00:00+02:00"});
    make_tiff(folder.filePath("harbour.tif"), {"ExifIFD:DateTimeOriginal=2017:05:03 23:30:00",
                                               "XMP-photoshop:DateCreated=2017:05:03 23:30:00"});
    make_png(folder.filePath("market.png"), {"ExifIFD:DateTimeOriginal=2017:12:31 23:59:59",
                                             "ExifIFD:CreateDate=2017:12:31 23:59:59"});
    const QStringList names = folder.entryList(QDir::Files);
    for (const QString &name : names)
        set_tags(folder.filePath(name), {"System:FileModifyDate=2018:01:02 03:04:05+00:00"});
}

folder_values look_at(const QDir &folder)
{
    folder_values values;
    const QStringList names = folder.entryList(QDir::Files, QDir::Name);
    for (const QString &name : names) {
        const QMap<QString, QString> tags = all_tags(folder.filePath(name));
        for (const QString &tag : shown_tags)
            values[name][tag] = tags.value(tag, "-");
    }
    return values;
}

QMap<QString, preview> read_previews(const table_data_model &model)
{
    QMap<QString, preview> previews;
    for (int row = 0; row < model.rowCount(); ++row) {
        const auto cell = [&model, row](int column, int role) {
            return model.index(row, column).data(role);
        };
        const QString text =
            cell(table_data_model::new_recording_time_column, Qt::DisplayRole).toString();
        previews[cell(table_data_model::name_column, Qt::DisplayRole).toString()] = {
            text, cell(table_data_model::new_recording_time_column, Qt::UserRole).toDateTime(),
            text.section("UTC", 1)};
    }
    return previews;
}

/// Answers each message box that opens with its Yes button, and prints that.
void answer_all_boxes()
{
    auto *box = qobject_cast<orv::message_box *>(QApplication::activeModalWidget());
    if (!box || !box->isVisible())
        return;
    QAbstractButton *yes = box->button(QMessageBox::Yes);
    say("asked: " + box->text().section('\n', 0, 0) + " -> " + yes->text());
    QTest::mouseClick(yes, Qt::LeftButton);
}

bool is_same_instant(const QString &value, const QDateTime &time, const QString &zone)
{
    const auto instant = [](const QString &text) {
        QString iso = text;
        return QDateTime::fromString(iso.replace(4, 1, '-').replace(7, 1, '-').replace(10, 1, 'T'),
                                     Qt::ISODate);
    };
    return instant(value) == instant(time.toString(date_time_format) + zone);
}

/// Whether `value` is what the preview promised for the tag, given its value before the fix.
bool is_as_promised(const QString &tag, const QString &value, const QString &before,
                    const preview &promise)
{
    const QString text = promise.time.toString(date_time_format);
    if (tag == "IPTC:DateCreated")
        return value == text.left(10);
    if (tag == "IPTC:TimeCreated")
        return value == text.mid(11) + promise.zone;
    if (before == "-")
        return value == "-";
    if (tag == "System:FileModifyDate")
        return is_same_instant(value, promise.time, promise.zone);
    return value == text;
}

QString table_row(const QStringList &cells)
{
    const int widths[] = {12, 26, 25, 30, 25, 25};
    QString row;
    for (int i = 0; i < cells.size(); ++i)
        row += cells[i].leftJustified(widths[i]) + " ";
    return row;
}

/// Prints what happened to each tag and returns whether everything is right.
bool print_table(const steps &seen)
{
    bool agrees = true;
    say(table_row({"photo", "tag", "before", "preview", "after", "undone"}));
    for (const QString &name : seen.before.keys()) {
        const preview promise = seen.previews[name];
        for (const QString &tag : shown_tags) {
            const QString before = seen.before[name][tag];
            const QString after = seen.after[name][tag];
            const QString undone = seen.undone[name][tag];
            const bool right = is_as_promised(tag, after, before, promise) && undone == before;
            say(table_row({name, tag, before, promise.text, after, undone}) +
                (right ? "ok" : "WRONG"));
            agrees = agrees && right;
        }
    }
    return agrees;
}

bool shows_new_times(const table_data_model &model, const QMap<QString, preview> &previews)
{
    bool same = model.rowCount() == previews.size();
    for (int row = 0; row < model.rowCount(); ++row) {
        const QString name = model.index(row, table_data_model::name_column).data().toString();
        const QVariant time =
            model.index(row, table_data_model::recording_time_column).data(Qt::UserRole);
        same = same && time.toDateTime() == previews[name].time;
    }
    return same;
}

template <class Widget>
void type(MainWindow &window, const char *field, const char *text)
{
    QTest::keyClicks(window.findChild<Widget *>(field), text);
}

}  // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: kelvra_demo FOLDER\n");
        return 2;
    }
    const private_home home;
    set_identity();
    orv::application<MainWindow> application(argc, argv);
    install_style();
    install_icons();
    install_translators("en");
    const QDir pictures(argv[1]);
    pictures.mkpath(".");
    const QDir photos(home.filePath("photos"));
    photos.mkpath(".");
    make_photos(photos);

    MainWindow window(nullptr);
    application.main_window = &window;
    window.show();
    QTimer answers;
    QObject::connect(&answers, &QTimer::timeout, answer_all_boxes);
    answers.start(50);
    const auto take_picture = [&](const char *name) {
        QTest::qWait(100);
        window.grab().save(pictures.filePath(name));
    };

    steps seen;
    seen.before = look_at(photos);
    take_picture("1-start.png");
    drop_on(*window.ui->widget_dropper, QStringList{photos.path()});
    take_picture("2-loaded.png");
    type<orv::lineedit>(window, "lineedit_hour", typed_hours);
    type<orv::lineedit>(window, "lineedit_timezone", typed_zone);
    seen.previews = read_previews(*window.model);
    take_picture("3-preview.png");
    QTest::mouseClick(window.button_fix_time, Qt::LeftButton);
    seen.after = look_at(photos);
    take_picture("4-fixed.png");
    drop_on(*window.ui->widget_dropper, QStringList{photos.path()});
    const bool shown = shows_new_times(*window.model, seen.previews);
    take_picture("5-loaded-again.png");
    QTest::mouseClick(window.button_undo, Qt::LeftButton);
    seen.undone = look_at(photos);
    take_picture("6-undone.png");

    const bool agrees = print_table(seen) && shown;
    say("pictures of the steps: " + pictures.path());
    say(agrees ? "All agrees." : "SOMETHING IS WRONG.");
    return agrees ? 0 : 1;
}
