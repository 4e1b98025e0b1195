// The properties dialog's Document tab: the figures of a text document that a
// caller holds in a rich text box.
#include "picinfo/frmProps.h"

#include "platform/core/Conversions.h"
#include "platform/core/Error.h"
#include "platform/print/RichTextBox.h"
#include "printing/PageSettings.h"
#include "printing/clsPrinting.h"
#include "printing/frmPPrev.h"
#include "settings/StoreAndFileServices.h"

#include <QLineEdit>

#include <array>

using platform::resumeNext;

// A step that fails is skipped; its box keeps what it showed.
void frmProps::UPDATEDOCINFO(const QString& path, const QString& TXTRTFSRC, const QString& /*TXTRTFSELSRC*/,
                             QWidget* RTFBOXSRC)
{
    StoreAndFileServices& library = StoreAndFileServices::instance();
    auto* box = qobject_cast<platform::RichTextBox*>(RTFBOXSRC);
    resumeNext([&] { TXTDOCPATH->setText(path); });
    resumeNext([&] { TXTWORDS->setText(QString::number(library.WORDCOUNT(TXTRTFSRC))); });
    // Characters as a person counts them: one beyond the 16-bit range is one.
    resumeNext([&] { TXTDOCLEN->setText(QString::number(TXTRTFSRC.toUcs4().size())); });

    // Left, right, top and bottom, as the page setup stores them.
    std::array<QString, 4> margins;
    for (size_t i = 0; i < margins.size(); ++i) {
        resumeNext([&] {
            margins[i] = library.REGSTRREAD(StoreAndFileServices::currentUserKey(), printing::marginsKey(),
                                            printing::marginName(int(i)), QStringLiteral("1"));
        });
    }
    clsPrinting& engine = clsPrinting::instance();
    frmPPrev& pages = Forms::get<frmPPrev>();
    resumeNext([&] { engine.INITIALIZEPATH(&pages, box); });
    resumeNext([&] { engine.GETMARGINS(); });
    resumeNext([&] {
        using platform::toInt16;
        const int32_t count = engine.PAGECOUNT(&pages, 0, toInt16(margins[0]), toInt16(margins[2]),
                                               toInt16(margins[1]), toInt16(margins[3]));
        TXTDOCPAGES->setText(QString::number(count));
    });
    resumeNext([&] {
        if (!box)
            throw platform::Error(platform::err::ObjectNotSet);
        TXTDOCLINES->setText(QString::number(1 + box->LineFromChar(int32_t(box->Text().size()))));
    });
}
