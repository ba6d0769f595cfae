// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLabel>

class QTextDocument;

namespace orv
{

/// A label that breaks its lines between words and, if a word is wider than the label, such as a
/// path without spaces, inside the word. It cuts nothing off, however narrow it is.
///
/// `text()`, which is also what a screen reader gets, is the text as given. The text is shown at
/// the top left. Requires: the text doesn't change after construction.
class wrapped_label : public QLabel
{
    Q_OBJECT

public:
    /// @param format  Qt::PlainText or Qt::RichText
    wrapped_label(const QString &text, Qt::TextFormat format, QWidget *parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QTextDocument *document;  ///< child of this; the text and its lines
};

}  // namespace orv
