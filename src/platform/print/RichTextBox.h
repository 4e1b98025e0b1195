#pragma once

#include "platform/print/PageFormatter.h"

#include <QTextEdit>

#include <cstdint>

namespace platform {

// A rich text box. Its rich text form (TextRTF, SelRTF) is the document's HTML,
// which keeps fonts, paragraphs, tables and pictures; pictures named relative to
// the document's base address are written with their full address, so that the
// text can be loaded into another box. Pictures that live only in memory (added
// as resources) don't travel. Positions count characters
// of the plain text (Text), with one character for each paragraph break.
class RichTextBox : public QTextEdit {
    Q_OBJECT
public:
    explicit RichTextBox(QWidget* parent = nullptr);

    QString Text() const;
    void setText(const QString& text);
    QString TextRTF() const;
    // Takes HTML, or plain text when the text doesn't look like markup.
    void setTextRTF(const QString& text);
    // The selection as rich text; empty without a selection.
    QString SelRTF() const;

    // The selection; a start past the end goes to the end, a length past the end
    // stops there, and a negative length is an invalid value.
    int32_t SelStart() const;
    void setSelStart(int32_t position);
    int32_t SelLength() const;
    void setSelLength(int32_t length);

    // Lays out (and with RENDER draws) one page, as PageFormatter does; a null
    // range releases the layout kept from the previous page. Returns the first
    // character of the next page (0 on release).
    int32_t FormatRange(bool render, const FORMATRANGE* range);
    // The number, from 0, of the line of this box that holds POSITION, as the box
    // wraps its text at its own width.
    int32_t LineFromChar(int32_t position) const;

private:
    QString withAbsolutePictures(QString html) const;

    PageFormatter formatter_;
};

} // namespace platform
