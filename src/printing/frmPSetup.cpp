// The page setup dialog: its controls and which handler each of them raises.
#include "printing/frmPSetup.h"

#include "platform/core/Error.h"
#include "platform/widgets/Screen.h"
#include "platform/widgets/Twips.h"
#include "presentation/PANEL.h"
#include "presentation/SPIN.h"
#include "presentation/TXTSEP.h"

#include <QAction>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QStyle>
#include <QTabBar>
#include <QVBoxLayout>

using platform::twips;

namespace {

// The dialog's client area in twips.
constexpr float DesignWidth = 7800;
constexpr float DesignHeight = 6300;
// The buttons below the tabs, in twips.
constexpr float ButtonWidth = 1215;
constexpr float ButtonHeight = 375;
// Room around the content, in pixels.
constexpr int Margin = 10;

QLabel* captionFor(QWidget* control, const QString& caption)
{
    auto* label = new QLabel(caption, control->parentWidget());
    label->setBuddy(control);
    return label;
}

zuv::SPIN* marginControl(QWidget* parent, const QString& name)
{
    auto* spin = new zuv::SPIN(parent);
    spin->setObjectName(name);
    return spin;
}

// A check box that starts checked, as every stored switch defaults to on.
QCheckBox* switchBox(QWidget* parent, const QString& caption)
{
    auto* box = new QCheckBox(caption, parent);
    box->setChecked(true);
    return box;
}

// An element of a page picture keeps its place when it is hidden, as it would on
// paper.
template <typename Element> Element* pictureElement(Element* element)
{
    QSizePolicy keep = element->sizePolicy();
    keep.setRetainSizeWhenHidden(true);
    element->setSizePolicy(keep);
    return element;
}

QLineEdit* pictureText(QWidget* parent, const QString& text, bool editable)
{
    auto* box = pictureElement(new QLineEdit(text, parent));
    box->setFrame(false);
    box->setReadOnly(!editable);
    box->setAutoFillBackground(true);
    return box;
}

QFrame* pictureRule(QWidget* parent)
{
    auto* rule = pictureElement(new QFrame(parent));
    rule->setFrameShape(QFrame::HLine);
    rule->setFrameShadow(QFrame::Plain);
    return rule;
}

QFrame* pagePicture(QWidget* parent)
{
    auto* picture = new QFrame(parent);
    picture->setFrameStyle(QFrame::Box | QFrame::Plain);
    picture->setAutoFillBackground(true);
    QPalette page = picture->palette();
    page.setColor(QPalette::Window, page.color(QPalette::Base));
    picture->setPalette(page);
    return picture;
}

QHBoxLayout* row(std::initializer_list<QWidget*> controls)
{
    auto* line = new QHBoxLayout;
    for (QWidget* control : controls)
        line->addWidget(control);
    line->addStretch();
    return line;
}

} // namespace

frmPSetup::frmPSetup() : Form(QStringLiteral("frmPSetup"))
{
    createControls();
    connectHandlers();
}

frmPSetup::~frmPSetup() = default;

void frmPSetup::createControls()
{
    setWindowTitle(QStringLiteral("Page Setup"));
    makeFixedDialog(DesignWidth, DesignHeight);
    QWidget* client = clientArea();

    PANEL1 = new zuv::PANEL(client);
    BTNOK = new QPushButton(QStringLiteral("OK"), PANEL1);
    BTNCANCEL = new QPushButton(QStringLiteral("Cancel"), PANEL1);
    for (QPushButton* button : {BTNOK, BTNCANCEL}) {
        twips(button).setWidth(ButtonWidth);
        twips(button).setHeight(ButtonHeight);
    }
    BTNOK->setDefault(true);
    // Enter presses OK once it can be pressed; Esc is Cancel.
    auto* enter = new QAction(BTNOK);
    enter->setShortcuts({Qt::Key_Return, Qt::Key_Enter});
    connect(enter, &QAction::triggered, BTNOK, &QPushButton::click);
    addAction(enter);
    auto* escape = new QAction(BTNCANCEL);
    escape->setShortcut(Qt::Key_Escape);
    connect(escape, &QAction::triggered, BTNCANCEL, &QPushButton::click);
    addAction(escape);

    auto* content = new QVBoxLayout(client);
    content->setContentsMargins(Margin, Margin, Margin, PANEL1->height() + Margin / 2);
    TABSTRIP1 = new QTabBar(client);
    TABSTRIP1->setDrawBase(true);
    TABSTRIP1->addTab(QStringLiteral("Page"));
    TABSTRIP1->setTabData(0, QString::fromLatin1(PageKey));
    TABSTRIP1->addTab(QStringLiteral("Header/Footer"));
    TABSTRIP1->setTabData(1, QString::fromLatin1(HeaderFooterKey));
    content->addWidget(TABSTRIP1);
    // Both frames stand in the same place; the tab strip shows one of them.
    auto* frames = new QGridLayout;
    frames->addWidget(createPageTab(), 0, 0);
    frames->addWidget(createHeaderFooterTab(), 0, 0);
    content->addLayout(frames, 1);
    FRAMHEADERFOOTER->hide();

    if (const QScreen* screen = QGuiApplication::primaryScreen())
        move(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size(), screen->geometry()).topLeft());
}

QWidget* frmPSetup::createPageTab()
{
    FRAMPAGE = new QWidget(clientArea());
    // One grid: the captions, the controls, and the miniature beside them from the
    // paper row down, so that its picture and labels have the tab's height.
    auto* page = new QGridLayout(FRAMPAGE);
    page->setContentsMargins(0, Margin, 0, 0);

    CBOPRINTERS = new QComboBox(FRAMPAGE);
    page->addWidget(captionFor(CBOPRINTERS, QStringLiteral("&Printer:")), 0, 0);
    page->addWidget(CBOPRINTERS, 0, 1, 1, 2);
    CBOPAPER = new QComboBox(FRAMPAGE);
    page->addWidget(captionFor(CBOPAPER, QStringLiteral("Paper Si&ze:")), 1, 0);
    page->addWidget(CBOPAPER, 1, 1);
    OPTORIENTPORT = new QRadioButton(QStringLiteral("Portr&ait"), FRAMPAGE);
    OPTORIENTLAND = new QRadioButton(QStringLiteral("La&ndscape"), FRAMPAGE);
    auto* orientations = new QButtonGroup(FRAMPAGE);
    orientations->addButton(OPTORIENTPORT);
    orientations->addButton(OPTORIENTLAND);
    page->addWidget(captionFor(OPTORIENTPORT, QStringLiteral("&Orientation:")), 2, 0);
    page->addWidget(OPTORIENTPORT, 2, 1);
    page->addWidget(OPTORIENTLAND, 3, 1);

    auto* settings = new QVBoxLayout;
    TXTSEP1 = new zuv::TXTSEP(QStringLiteral("Text Margins (Inches)"), FRAMPAGE);
    settings->addWidget(TXTSEP1);
    auto* margins = new QGridLayout;
    UDNLEFT = marginControl(FRAMPAGE, QStringLiteral("UDNLEFT"));
    UDNRIGHT = marginControl(FRAMPAGE, QStringLiteral("UDNRIGHT"));
    UDNTOP = marginControl(FRAMPAGE, QStringLiteral("UDNTOP"));
    UDNBOTTOM = marginControl(FRAMPAGE, QStringLiteral("UDNBOTTOM"));
    margins->addWidget(captionFor(UDNLEFT, QStringLiteral("&Left:")), 0, 0);
    margins->addWidget(UDNLEFT, 0, 1);
    margins->addWidget(captionFor(UDNRIGHT, QStringLiteral("&Right:")), 0, 2);
    margins->addWidget(UDNRIGHT, 0, 3);
    margins->addWidget(captionFor(UDNTOP, QStringLiteral("&Top:")), 1, 0);
    margins->addWidget(UDNTOP, 1, 1);
    margins->addWidget(captionFor(UDNBOTTOM, QStringLiteral("&Bottom:")), 1, 2);
    margins->addWidget(UDNBOTTOM, 1, 3);
    settings->addLayout(margins);
    TXTSEP2 = new zuv::TXTSEP(QStringLiteral("Print Settings"), FRAMPAGE);
    settings->addWidget(TXTSEP2);
    BTNDEFAULTS = new QPushButton(QStringLiteral("&Defaults"), FRAMPAGE);
    settings->addWidget(BTNDEFAULTS, 0, Qt::AlignLeft);
    settings->addStretch();
    page->addLayout(settings, 4, 0, 1, 2);

    // The miniature is placed by its own arithmetic, in twips, inside its frame.
    auto* miniature = new QVBoxLayout;
    PICWINDOW = new QFrame(FRAMPAGE);
    PICWINDOW->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    PICWINDOW->setFixedSize(platform::Screen::pixelsX(PictureWindowSize),
                            platform::Screen::pixelsY(PictureWindowSize));
    PICSHADOW = new QFrame(PICWINDOW);
    PICSHADOW->setAutoFillBackground(true);
    PICSHADOW->setBackgroundRole(QPalette::Shadow);
    PICPAPER = new QFrame(PICWINDOW);
    PICPAPER->setFrameStyle(QFrame::Box | QFrame::Plain);
    PICPAPER->setAutoFillBackground(true);
    QPalette white = PICPAPER->palette();
    white.setColor(QPalette::Window, Qt::white);
    white.setColor(QPalette::WindowText, Qt::black);
    PICPAPER->setPalette(white);
    SHPAREA = new QFrame(PICPAPER);
    SHPAREA->setFrameStyle(QFrame::Box | QFrame::Plain);
    QPalette dotted = SHPAREA->palette();
    dotted.setColor(QPalette::WindowText, Qt::gray);
    SHPAREA->setPalette(dotted);
    miniature->addWidget(PICWINDOW);
    PICDIMINSIONS = new QWidget(FRAMPAGE);
    auto* dimensions = new QVBoxLayout(PICDIMINSIONS);
    dimensions->setContentsMargins(0, 0, 0, 0);
    LBLWIDTH = new QLabel(QStringLiteral("Width:"), PICDIMINSIONS);
    LBLHEIGHT = new QLabel(QStringLiteral("Height:"), PICDIMINSIONS);
    dimensions->addWidget(LBLWIDTH);
    dimensions->addWidget(LBLHEIGHT);
    miniature->addWidget(PICDIMINSIONS);
    miniature->addStretch();
    page->addLayout(miniature, 1, 2, 4, 1);
    page->setColumnStretch(1, 1);
    page->setRowStretch(4, 1);
    return FRAMPAGE;
}

QWidget* frmPSetup::createHeaderFooterTab()
{
    FRAMHEADERFOOTER = new QWidget(clientArea());
    auto* tab = new QVBoxLayout(FRAMHEADERFOOTER);
    tab->setContentsMargins(0, Margin, 0, 0);
    BTNDEFAULTSHF = new QPushButton(QStringLiteral("&Defaults"), FRAMHEADERFOOTER);
    tab->addWidget(BTNDEFAULTSHF, 0, Qt::AlignRight);

    FRAMHEADER = new QGroupBox(QStringLiteral("Header"), FRAMHEADERFOOTER);
    CHKHEADER = switchBox(FRAMHEADER, QStringLiteral("&Header"));
    CHKHEADTITLE = switchBox(FRAMHEADER, QStringLiteral("&Title"));
    CHKHEADDATE = switchBox(FRAMHEADER, QStringLiteral("&Date"));
    CHKHEADTIME = switchBox(FRAMHEADER, QStringLiteral("&Time"));
    CHKHEADLINE = switchBox(FRAMHEADER, QStringLiteral("&Line"));
    PICHEAD = pagePicture(FRAMHEADER);
    TXTHEADDATE = pictureText(PICHEAD, QStringLiteral("12/12/2002"), false);
    TXTHEADTITLE = pictureText(PICHEAD, QString(), true);
    TXTHEADTITLE->setAlignment(Qt::AlignCenter);
    TXTHEADTIME = pictureText(PICHEAD, QStringLiteral("12:00:00 pm"), false);
    TXTHEADTIME->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    LNHEADLINE = pictureRule(PICHEAD);
    auto* head = new QGridLayout(PICHEAD);
    head->addWidget(TXTHEADDATE, 0, 0);
    head->addWidget(TXTHEADTITLE, 0, 1);
    head->addWidget(TXTHEADTIME, 0, 2);
    head->addWidget(LNHEADLINE, 1, 0, 1, 3);
    head->setColumnStretch(1, 2);
    auto* header = new QVBoxLayout(FRAMHEADER);
    header->addLayout(row({CHKHEADER, CHKHEADTITLE, CHKHEADDATE, CHKHEADTIME, CHKHEADLINE}));
    header->addWidget(PICHEAD);
    tab->addWidget(FRAMHEADER);

    FRAMFOOTER = new QGroupBox(QStringLiteral("Footer"), FRAMHEADERFOOTER);
    CHKFOOTER = switchBox(FRAMFOOTER, QStringLiteral("&Footer"));
    CHKFOOTFIELD1 = switchBox(FRAMFOOTER, QStringLiteral("&Field 1"));
    CHKFOOTFIELD2 = switchBox(FRAMFOOTER, QStringLiteral("&Field 2"));
    CHKFOOTPGNO = switchBox(FRAMFOOTER, QStringLiteral("&Page No"));
    CHKFOOTLINE = switchBox(FRAMFOOTER, QStringLiteral("L&ine"));
    PICFOOT = pagePicture(FRAMFOOTER);
    LNFOOTLINE = pictureRule(PICFOOT);
    TXTFOOTFIELD1 = pictureText(PICFOOT, QString(), true);
    TXTFOOTPGNO = pictureText(PICFOOT, QStringLiteral("1"), false);
    TXTFOOTPGNO->setAlignment(Qt::AlignCenter);
    TXTFOOTFIELD2 = pictureText(PICFOOT, QString(), true);
    TXTFOOTFIELD2->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* foot = new QGridLayout(PICFOOT);
    foot->addWidget(LNFOOTLINE, 0, 0, 1, 3);
    foot->addWidget(TXTFOOTFIELD1, 1, 0);
    foot->addWidget(TXTFOOTPGNO, 1, 1);
    foot->addWidget(TXTFOOTFIELD2, 1, 2);
    auto* footer = new QVBoxLayout(FRAMFOOTER);
    footer->addLayout(row({CHKFOOTER, CHKFOOTFIELD1, CHKFOOTFIELD2, CHKFOOTPGNO, CHKFOOTLINE}));
    footer->addWidget(PICFOOT);
    tab->addWidget(FRAMFOOTER);
    tab->addStretch();
    return FRAMHEADERFOOTER;
}

// Handlers run on every change of a control's value, whether the user or the code
// made it, except the printer list, which answers the user's choice alone.
void frmPSetup::connectHandlers()
{
    connect(TABSTRIP1, &QTabBar::currentChanged, this, platform::guarded(this, &frmPSetup::TABSTRIP1_Click));
    connect(CBOPRINTERS, &QComboBox::activated, this, platform::guarded(this, &frmPSetup::CBOPRINTERS_Click));
    connect(CBOPAPER, &QComboBox::currentIndexChanged, this,
            platform::guarded(this, &frmPSetup::CBOPAPER_Click));
    connect(OPTORIENTPORT, &QRadioButton::toggled, this, platform::guarded([this](bool on) {
                if (on)
                    OPTORIENTPORT_Click();
            }));
    connect(OPTORIENTLAND, &QRadioButton::toggled, this, platform::guarded([this](bool on) {
                if (on)
                    OPTORIENTLAND_Click();
            }));
    for (zuv::SPIN* margin : {UDNLEFT, UDNRIGHT, UDNTOP, UDNBOTTOM})
        connect(margin, &zuv::SPIN::Change, this, platform::guarded(this, &frmPSetup::UDN_Change));
    connect(BTNDEFAULTS, &QPushButton::clicked, this, platform::guarded(this, &frmPSetup::BTNDEFAULTS_Click));

    connect(BTNDEFAULTSHF, &QPushButton::clicked, this,
            platform::guarded(this, &frmPSetup::BTNDEFAULTSHF_Click));
    connect(CHKHEADER, &QCheckBox::stateChanged, this, platform::guarded(this, &frmPSetup::CHKHEADER_Click));
    connect(CHKFOOTER, &QCheckBox::stateChanged, this, platform::guarded(this, &frmPSetup::CHKFOOTER_Click));
    const std::pair<QCheckBox*, QWidget*> elements[] = {
        {CHKHEADTITLE, TXTHEADTITLE}, {CHKHEADDATE, TXTHEADDATE},     {CHKHEADTIME, TXTHEADTIME},
        {CHKHEADLINE, LNHEADLINE},    {CHKFOOTFIELD1, TXTFOOTFIELD1}, {CHKFOOTFIELD2, TXTFOOTFIELD2},
        {CHKFOOTPGNO, TXTFOOTPGNO},   {CHKFOOTLINE, LNFOOTLINE}};
    for (const auto& pair : elements)
        connect(pair.first, &QCheckBox::stateChanged, this,
                platform::guarded(
                    [this, box = pair.first, element = pair.second] { pictureBoxClick(box, element); }));
    connect(TXTHEADTITLE, &QLineEdit::textChanged, this,
            platform::guarded(this, &frmPSetup::TXTHEADTITLE_Change));
    connect(TXTFOOTFIELD1, &QLineEdit::textChanged, this,
            platform::guarded(this, &frmPSetup::TXTFOOTFIELD1_Change));

    connect(BTNOK, &QPushButton::clicked, this, platform::guarded(this, &frmPSetup::BTNOK_Click));
    connect(BTNCANCEL, &QPushButton::clicked, this, platform::guarded(this, &frmPSetup::BTNCANCEL_Click));
}
