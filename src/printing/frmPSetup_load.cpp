// The page setup's life: loading the printer's state and the stored settings,
// storing them with OK, giving paper and orientation to the printer at the end.
#include "printing/frmPSetup.h"

#include "platform/core/Conversions.h"
#include "platform/core/Error.h"
#include "platform/print/Printer.h"
#include "presentation/PresentationServices.h"
#include "presentation/SPIN.h"
#include "printing/PageSettings.h"
#include "printing/Paper.h"
#include "settings/StoreAndFileServices.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>

#include <array>

using platform::resumeNext;

QString PSETUPORIENT;
QString PSETUPPAPER;
QString PSETUPPRINTER;

namespace {

// A stored switch, as its check box's value: 0 clear, 1 checked, 2 greyed. Any
// other value is an invalid property value, and the box keeps its state.
void setValue(QCheckBox* box, const QString& text)
{
    const int16_t value = platform::toInt16(text);
    if (value < 0 || value > 2)
        throw platform::Error(platform::err::InvalidPropertyValue);
    if (value == 2)
        box->setTristate(true);
    box->setCheckState(value == 0 ? Qt::Unchecked : value == 1 ? Qt::Checked : Qt::PartiallyChecked);
}

QString valueOf(const QCheckBox* box)
{
    switch (box->checkState()) {
    case Qt::Unchecked: return QStringLiteral("0");
    case Qt::PartiallyChecked: return QStringLiteral("2");
    case Qt::Checked: break;
    }
    return QStringLiteral("1");
}

// The number at the start of a text, as text: "" and "abc" give "0".
QString numberIn(const QString& text)
{
    return QString::number(platform::val(text), 'g', 15);
}

// A check box and the value that stores it.
struct Switch {
    QCheckBox* box;
    QString key;
    QString name;
};

constexpr size_t SwitchCount = 10;

// The stored switches in the order loading reads them: the footer's, then the
// header's, each part's own switch last.
std::array<Switch, SwitchCount> switchesOf(const frmPSetup& form)
{
    const QString footer = printing::footerKey();
    const QString header = printing::headerKey();
    return {{{form.CHKFOOTFIELD1, footer, QStringLiteral("chkField1")},
             {form.CHKFOOTFIELD2, footer, QStringLiteral("chkField2")},
             {form.CHKFOOTLINE, footer, QStringLiteral("chkFLine")},
             {form.CHKFOOTPGNO, footer, QStringLiteral("chkPgNo")},
             {form.CHKFOOTER, footer, QStringLiteral("Checked")},
             {form.CHKHEADTITLE, header, QStringLiteral("chkTitle")},
             {form.CHKHEADLINE, header, QStringLiteral("chkHLine")},
             {form.CHKHEADDATE, header, QStringLiteral("chkDate")},
             {form.CHKHEADTIME, header, QStringLiteral("chkTime")},
             {form.CHKHEADER, header, QStringLiteral("Checked")}}};
}

// OK writes the footer's first four in another order: line, page number, field 2,
// field 1.
constexpr std::array<size_t, SwitchCount> WriteOrder = {2, 3, 1, 0, 4, 5, 6, 7, 8, 9};

QString read(const QString& key, const QString& name, const QString& fallback)
{
    return StoreAndFileServices::instance().REGSTRREAD(StoreAndFileServices::currentUserKey(), key, name,
                                                       fallback);
}

void write(const QString& key, const QString& name, const QString& data)
{
    StoreAndFileServices::instance().REGSTRWRITE(StoreAndFileServices::currentUserKey(), key, name, data);
}

} // namespace

// A step that fails is skipped and the next one runs. Setting a control runs its
// handler, which gives the enable rules and the miniature their first state; the
// last steps undo what those handlers did to the dialog's own state.
void frmPSetup::Form_Load()
{
    StoreAndFileServices& library = StoreAndFileServices::instance();
    platform::Printer& printer = platform::currentPrinter();
    PRINTERAPPLY = false;

    resumeNext([&] { CBOPRINTERS->addItems(platform::Printers()); });
    resumeNext([&] { CBOPRINTERS->setCurrentIndex(CBOPRINTERS->findText(printer.DeviceName())); });

    resumeNext([&] {
        if (!PSETUPORIENT.isEmpty())
            printing::setOrientation(printer, platform::toInt16(PSETUPORIENT));
    });
    resumeNext([&] {
        const int16_t orientation = printing::orientation(printer);
        if (orientation == printing::Portrait)
            OPTORIENTPORT->setChecked(true);
        if (orientation == printing::Landscape)
            OPTORIENTLAND->setChecked(true);
    });
    resumeNext([&] { PSETUPORIENT = QString::number(printing::orientation(printer)); });

    {
        // A list that is being filled chooses nothing.
        const QSignalBlocker filling(CBOPAPER);
        for (const printing::Paper& paper : printing::papers())
            CBOPAPER->addItem(QString::fromLatin1(paper.entry));
        CBOPAPER->setCurrentIndex(-1);
    }
    resumeNext([&] {
        if (!PSETUPPAPER.isEmpty())
            printing::setPaperSize(printer, platform::toInt16(PSETUPPAPER));
    });
    resumeNext([&] { PAPERSELECT(); });

    const std::array<zuv::SPIN*, 4> margins = {UDNLEFT, UDNRIGHT, UDNTOP, UDNBOTTOM};
    for (size_t i = 0; i < margins.size(); ++i) {
        resumeNext([&] {
            margins[i]->setText(library.TEXTJUSTIFY(
                read(printing::marginsKey(), printing::marginName(int(i)), QStringLiteral("1"))));
        });
    }

    PAGEDRAW();
    resumeNext([&] { library.RESIZEBTNSOKCANCEL(this, BTNOK, BTNCANCEL); });

    const QString footer = printing::footerKey();
    const QString header = printing::headerKey();
    for (const Switch& stored : switchesOf(*this))
        resumeNext([&] { setValue(stored.box, read(stored.key, stored.name, QStringLiteral("1"))); });
    resumeNext([&] { TXTHEADTITLE->setText(read(header, QStringLiteral("txtTitle"), defaultTitle())); });
    resumeNext([&] { TXTFOOTFIELD1->setText(read(footer, QStringLiteral("txtField1"), defaultField1())); });
    resumeNext([&] { TXTFOOTFIELD2->setText(read(footer, QStringLiteral("txtField2"), defaultField2())); });

    if (!PSETUPPAPER.isEmpty())
        PAPERTEXT = numberIn(PSETUPPAPER);
    if (!PSETUPORIENT.isEmpty())
        ORIENTTEXT = numberIn(PSETUPORIENT);
    BTNOK->setEnabled(false);
    PresentationServices::instance().STATUSBARCAPTION(Forms::mainForm(), QString(), 0);
    const QString rows = QStringLiteral("15");
    resumeNext([&] { library.COMBOINIT(QString(), rows, CBOPAPER, false); });
    resumeNext([&] { library.COMBOINIT(QString(), rows, CBOPRINTERS, false); });
}

void frmPSetup::BTNOK_Click()
{
    PRINTERAPPLY = true;
    const std::array<const zuv::SPIN*, 4> margins = {UDNLEFT, UDNRIGHT, UDNTOP, UDNBOTTOM};
    for (size_t i = 0; i < margins.size(); ++i)
        write(printing::marginsKey(), printing::marginName(int(i)), margins[i]->text());

    const QString footer = printing::footerKey();
    const QString header = printing::headerKey();
    const auto switches = switchesOf(*this);
    for (const size_t i : WriteOrder)
        write(switches[i].key, switches[i].name, valueOf(switches[i].box));
    write(header, QStringLiteral("txtTitle"), TXTHEADTITLE->text());
    write(footer, QStringLiteral("txtField1"), TXTFOOTFIELD1->text());
    write(footer, QStringLiteral("txtField2"), TXTFOOTFIELD2->text());

    PSETUPORIENT = numberIn(ORIENTTEXT);
    PSETUPPRINTER = platform::currentPrinter().DeviceName();
    PSETUPPAPER = numberIn(PAPERTEXT);
    Forms::unload<frmPSetup>();
}

void frmPSetup::BTNCANCEL_Click()
{
    Forms::unload<frmPSetup>();
}

// After OK the chosen paper and orientation go to the printer once more: another
// printer chosen after them starts from its own.
void frmPSetup::Form_Unload()
{
    if (PRINTERAPPLY) {
        platform::Printer& printer = platform::currentPrinter();
        resumeNext([&] { printing::setPaperSize(printer, platform::toInt16(platform::val(PAPERTEXT))); });
        resumeNext([&] { printing::setOrientation(printer, platform::toInt16(platform::val(ORIENTTEXT))); });
    }
    PRINTERAPPLY = false;
}
