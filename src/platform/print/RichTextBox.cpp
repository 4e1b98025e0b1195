#include "platform/print/RichTextBox.h"

#include "platform/core/Error.h"

#include <QAbstractTextDocumentLayout>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextDocumentFragment>
#include <QTextLayout>

#include <algorithm>

namespace platform {

RichTextBox::RichTextBox(QWidget* parent) : QTextEdit(parent)
{
    // A change of the text makes the kept page layout stale.
    connect(document(), &QTextDocument::contentsChanged, this, [this] { formatter_.release(); });
}

QString RichTextBox::Text() const
{
    return toPlainText();
}

void RichTextBox::setText(const QString& text)
{
    setPlainText(text);
}

QString RichTextBox::TextRTF() const
{
    return withAbsolutePictures(toHtml());
}

void RichTextBox::setTextRTF(const QString& text)
{
    if (Qt::mightBeRichText(text))
        setHtml(text);
    else
        setPlainText(text);
}

QString RichTextBox::SelRTF() const
{
    const QTextCursor cursor = textCursor();
    return cursor.hasSelection() ? withAbsolutePictures(cursor.selection().toHtml()) : QString();
}

QString RichTextBox::withAbsolutePictures(QString html) const
{
    const QUrl base = document()->baseUrl();
    if (base.isEmpty())
        return html;
    static const QRegularExpression source(QStringLiteral("(<img\\b[^>]*\\ssrc=\")([^\"]*)\""));
    QRegularExpressionMatchIterator matches = source.globalMatch(html);
    QList<QRegularExpressionMatch> found;
    while (matches.hasNext())
        found.append(matches.next());
    // From the end, so that earlier positions stay valid.
    for (auto match = found.crbegin(); match != found.crend(); ++match) {
        const QUrl picture(match->captured(2));
        if (picture.isRelative())
            html.replace(match->capturedStart(2), match->capturedLength(2),
                         base.resolved(picture).toString());
    }
    return html;
}

int32_t RichTextBox::SelStart() const
{
    return textCursor().selectionStart();
}

void RichTextBox::setSelStart(int32_t position)
{
    QTextCursor cursor = textCursor();
    const int32_t length = document()->characterCount() - 1;
    cursor.setPosition(std::clamp(position, 0, length));
    setTextCursor(cursor);
}

int32_t RichTextBox::SelLength() const
{
    const QTextCursor cursor = textCursor();
    return cursor.selectionEnd() - cursor.selectionStart();
}

void RichTextBox::setSelLength(int32_t length)
{
    if (length < 0)
        throw Error(err::InvalidPropertyValue);
    QTextCursor cursor = textCursor();
    const int32_t start = cursor.selectionStart();
    const int32_t end = std::min<int64_t>(int64_t(start) + length, document()->characterCount() - 1);
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

int32_t RichTextBox::FormatRange(bool render, const FORMATRANGE* range)
{
    if (!range) {
        formatter_.release();
        return 0;
    }
    return formatter_.formatRange(*document(), *range, render);
}

int32_t RichTextBox::LineFromChar(int32_t position) const
{
    QTextDocument* text = document();
    // A box that has never been shown hasn't laid its text out at its width yet
    // (the toolkit does that at the first resize event, which a hidden box doesn't
    // get): lay it out now, as showing it would.
    if (lineWrapMode() == WidgetWidth && text->textWidth() != viewport()->width())
        text->setTextWidth(viewport()->width());
    text->documentLayout()->documentSize();
    const int32_t target = std::clamp(position, 0, text->characterCount() - 1);
    int32_t line = 0;
    for (QTextBlock block = text->begin(); block.isValid(); block = block.next()) {
        const QTextLayout* lines = block.layout();
        const int count = lines ? lines->lineCount() : 0;
        if (target < block.position() + block.length()) {
            const QTextLine at = count ? lines->lineForTextPosition(target - block.position()) : QTextLine();
            return line + (at.isValid() ? at.lineNumber() : std::max(0, count - 1));
        }
        line += count;
    }
    return std::max(0, line - 1);
}

} // namespace platform
