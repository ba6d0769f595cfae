// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/button_html.h"
#include "widget_test_main.h"

#include <QImage>
#include <QPainter>
#include <QTextDocument>
#include <QWindow>

using orv::button_html;

namespace
{

constexpr char words[] = "<font color=\"#ff0000\"><b>rich</b> text</font><br>in two lines";

QSizeF document_size(const QString &html)
{
    QTextDocument document;
    document.setHtml(html);
    return document.size();
}

QSize truncated(QSizeF size)
{
    return {static_cast<int>(size.width()), static_cast<int>(size.height())};
}

/// A text whose width and height would both come out larger if rounded rather than truncated.
QString html_of_broken_size()
{
    for (int percent = 101; percent < 200; ++percent) {
        for (int letters = 1; letters < 20; ++letters) {
            const QString html = QString("<p style=\"line-height:%1%\">%2</p>")
                                     .arg(percent)
                                     .arg(QString(letters, 'x'));
            const QSizeF size = document_size(html);
            if (size.toSize() == truncated(size) + QSize(1, 1))
                return html;
        }
    }
    qFatal("no text has such a size");
}

/// The document on a transparent background, cropped to a picture of this size.
QImage drawn(const QString &html, QSize size)
{
    QTextDocument document;
    document.setHtml(html);
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    document.drawContents(&painter);
    return picture;
}

QImage icon_of(const button_html &button)
{
    return button.icon()
        .pixmap(button.iconSize())
        .toImage()
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

/// True if any pixel of the picture has this colour.
bool shows(const QImage &picture, const QColor &colour)
{
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixelColor(x, y) == colour)
                return true;
        }
    }
    return false;
}

}  // namespace

class test_button_html : public QObject
{
    Q_OBJECT

private slots:
    void starts_without_text_and_rectangle_data();
    void starts_without_text_and_rectangle();
    void icon_is_the_drawn_document_data();
    void icon_is_the_drawn_document();
    void icon_is_transparent_around_the_text();
    void size_of_the_icon_is_truncated();
    void document_shows_on_the_button();
    void flashes_with_its_sheet();
};

void test_button_html::starts_without_text_and_rectangle_data()
{
    QTest::addColumn<bool>("with_html");
    QTest::newRow("with HTML") << true;
    QTest::newRow("without") << false;
}

void test_button_html::starts_without_text_and_rectangle()
{
    QFETCH(bool, with_html);
    QWidget parent;
    const auto *button = with_html ? new button_html(words, &parent) : new button_html(&parent);
    QCOMPARE(button->parentWidget(), &parent);
    QCOMPARE(button->text(), QString());
    QCOMPARE(button->highlight_rect, QRect(QPoint(4, 4), QPoint(0, 0)));
    QVERIFY(!button->highlight_rect.isValid());
    QVERIFY(!button->highlight);
    QCOMPARE(button->focusPolicy(), Qt::NoFocus);
    QCOMPARE(button->styleSheet(), QString("border:none;margin:2px 2px 2px 2px;"));
    QCOMPARE(button->metaObject()->className(), "orv::button_html");
    QCOMPARE(button->metaObject()->superClass(), &orv::button::staticMetaObject);
}

void test_button_html::icon_is_the_drawn_document_data()
{
    QTest::addColumn<QString>("html");
    QTest::newRow("rich text in two lines") << words;
    QTest::newRow("size with fractions of pixels") << html_of_broken_size();
    QTest::newRow("table with a background")
        << "<table bgcolor=\"#0000ff\" cellpadding=\"5\"><tr><td>a</td><td>b</td></tr></table>";
    QTest::newRow("beyond ASCII") << QString::fromUtf8("größer &euro;");
    QTest::newRow("nothing") << "";
}

void test_button_html::icon_is_the_drawn_document()
{
    QFETCH(QString, html);
    const button_html button(html, nullptr);
    const QSize size = truncated(document_size(html));
    QCOMPARE(button.iconSize(), size);
    QCOMPARE(button.icon().availableSizes(), QList<QSize>{size});
    QCOMPARE(icon_of(button), drawn(html, size));
    if (html.isEmpty())
        QCOMPARE(icon_of(button), icon_of(button_html(nullptr)));
}

void test_button_html::icon_is_transparent_around_the_text()
{
    const QImage icon = icon_of(button_html(words, nullptr));
    QVERIFY(shows(icon, QColor(255, 0, 0)));
    QVERIFY(shows(icon, Qt::black));
    for (int x = 0; x < icon.width(); ++x)
        QCOMPARE(icon.pixelColor(x, 0).alpha(), 0);
    QVERIFY(!shows(icon_of(button_html(nullptr)), Qt::black));
}

void test_button_html::size_of_the_icon_is_truncated()
{
    const QString html = html_of_broken_size();
    const button_html button(html, nullptr);
    QCOMPARE(button.iconSize(), document_size(html).toSize() - QSize(1, 1));
}

void test_button_html::document_shows_on_the_button()
{
    button_html button(words, nullptr);
    button.resize(button.iconSize() + QSize(40, 40));
    QVERIFY(shows(button.grab().toImage(), QColor(255, 0, 0)));
}

void test_button_html::flashes_with_its_sheet()
{
    QWidget window;
    window.resize(200, 120);
    auto *button = new button_html(words, &window);
    button->setGeometry(10, 10, 150, 80);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, button->geometry().center());
    QVERIFY(button->highlight);
    QCOMPARE(button->styleSheet(),
             QString("border:2px solid rgb(222,222,222);margin:0px 0px 0px 0px;"));
    QTRY_VERIFY(!button->highlight);
    QCOMPARE(button->styleSheet(), QString("border:none;margin:2px 2px 2px 2px;"));
}

KELVRA_WIDGET_TEST_MAIN(test_button_html)
#include "test_button_html.moc"
