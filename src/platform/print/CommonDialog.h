#pragma once

#include <QObject>

#include <cstdint>
#include <functional>

namespace platform {

// The common dialog control of a form, for its print dialog. The members carry
// the dialog's setup in and the user's choice out, as the print code expects:
// Flags (the PD_ bits), the page range FromPage..ToPage within 1..Max, Copies,
// and CancelError, which makes Cancel raise error 32755.
class CommonDialog : public QObject {
    Q_OBJECT
public:
    // The print dialog's flag bits that have an effect here.
    static constexpr int32_t PD_SELECTION = 0x1;
    static constexpr int32_t PD_PAGENUMS = 0x2;
    static constexpr int32_t PD_NOSELECTION = 0x4;
    static constexpr int32_t PD_COLLATE = 0x10;

    explicit CommonDialog(const QString& name, QObject* parent = nullptr);

    int32_t Flags = 0;
    int32_t FromPage = 0;
    int32_t ToPage = 0;
    int32_t Max = 0;
    int32_t Copies = 1;
    bool CancelError = false;
    // The file of the document that the window holds, if any.
    QString FileName;

    // Shows the print dialog for the current printer, modally over the window
    // that holds this control. The user may choose another printer, the pages
    // and the copies; the choice goes to the current printer and to the members.
    void ShowPrinter();

    // Centres the next dialog on the screen instead of over its window; the
    // request ends when that dialog opens.
    static void centreNextDialog(bool centre);

    // Tests: answers the next ShowPrinter() instead of a person. The answer may
    // change the members (as the user's choice) and returns false for Cancel. Run
    // unattended (platform/widgets/Unattended.h), a dialog with no answer queued
    // ends the run.
    using Answer = std::function<bool(CommonDialog&)>;
    static void setNextAnswer(Answer answer);
    // Tests: how many print dialogs were asked for, and whether the last was to
    // open centred on the screen.
    static int shownCount();
    static bool lastCentred();
};

} // namespace platform
