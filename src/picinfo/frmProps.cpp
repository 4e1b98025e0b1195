// The properties dialog: its controls, its life from GETPROPERTIES to Close, and
// the Picture tab. The Document tab is in frmProps_document.cpp.
#include "picinfo/frmProps.h"

#include "picinfo/PictureServices.h"
#include "platform/core/Error.h"
#include "platform/core/ImageHeader.h"
#include "platform/widgets/Fonts.h"
#include "presentation/PANEL.h"
#include "presentation/TXTSEP.h"
#include "settings/StoreAndFileServices.h"

#include <QAction>
#include <QCheckBox>
#include <QFormLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

// The dialog's client area in twips.
constexpr int DesignWidth = 5700;
constexpr int DesignHeight = 4950;
// Room around the content, in pixels.
constexpr int Margin = 12;

const QString PlacementGroup = QStringLiteral("GLOBAL");
const QString PictureType = QStringLiteral("PICTURE");
const QString DocumentType = QStringLiteral("DOCUMENT");
const QString UntitledType = QStringLiteral("UNTITLED");
// What a box of the Picture and Document tabs shows until something replaces it.
const QString NothingYet = QStringLiteral("0");

// A flat, borderless box for display: it can be read and copied from, not changed.
QLineEdit* displayBox(QWidget* parent, const QString& text)
{
    auto* box = new QLineEdit(text, parent);
    box->setFrame(false);
    box->setReadOnly(true);
    return box;
}

} // namespace

namespace picinfo {

PropertiesRequest& propertiesRequest()
{
    static PropertiesRequest request;
    return request;
}

} // namespace picinfo

void PictureServices::GETPROPERTIES(Form& (*FORMNAME)(), const QString& FILEPATH, Form* MODALFORM,
                                    const QString& FILETYPE, const QString& TXTRTFSRC,
                                    const QString& TXTRTFSELSRC, QWidget* RTFBOXSRC)
{
    picinfo::propertiesRequest() = {FILEPATH, FILETYPE, TXTRTFSRC, TXTRTFSELSRC, RTFBOXSRC};
    FORMNAME().Show(1, MODALFORM);
}

frmProps::frmProps() : Form(QStringLiteral("frmProps"))
{
    createControls();
}

frmProps::~frmProps() = default;

Form& frmProps::load()
{
    Forms::unload<frmProps>();
    return Forms::get<frmProps>();
}

void frmProps::createControls()
{
    setWindowTitle(QStringLiteral("Properties"));
    makeFixedDialog(DesignWidth, DesignHeight);
    QWidget* client = clientArea();

    PANEL1 = new zuv::PANEL(client);
    BTNCLOSE = new QPushButton(QStringLiteral("&Close"), PANEL1);
    connect(BTNCLOSE, &QPushButton::clicked, this, platform::guarded(this, &frmProps::BTNCLOSE_Click));
    setCloseButton(BTNCLOSE);

    // Everything above the panel is laid out; the panel keeps to the bottom itself.
    auto* content = new QVBoxLayout(client);
    content->setContentsMargins(Margin, Margin, Margin, PANEL1->height() + Margin / 2);

    PICBOX = new QWidget(client);
    auto* top = new QHBoxLayout(PICBOX);
    top->setContentsMargins(0, 0, 0, 0);
    PICICON = new QLabel(PICBOX);
    top->addWidget(PICICON);
    TXTFILENAME = displayBox(PICBOX, QString());
    TXTFILENAME->setFont(platform::designFont(QStringLiteral("Tahoma"), 9.75, true));
    top->addWidget(TXTFILENAME, 1);
    content->addWidget(PICBOX);

    TABPROPS = new QTabWidget(client);
    content->addWidget(TABPROPS, 1);

    // The tab pages are the frames: the tab widget shows the frame of the chosen tab
    // and hides the others.
    FRAMGENERAL = new QWidget(TABPROPS);
    auto* general = new QFormLayout(FRAMGENERAL);
    general->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    TXTTYPE = addField(FRAMGENERAL, QStringLiteral("Type:"), QStringLiteral("txtType"));
    TXTLOCATION = addField(FRAMGENERAL, QStringLiteral("Location:"), QStringLiteral("txtLocation"));
    TXTSIZE = addField(FRAMGENERAL, QStringLiteral("Size:"), QStringLiteral("txtSize"));
    TXTMODIFIED = addField(FRAMGENERAL, QStringLiteral("Modified:"), QStringLiteral("txtModified"));
    TSEP1 = new zuv::TXTSEP(QString(), FRAMGENERAL);
    general->addRow(TSEP1);
    // Shown from the left Archive, Read-only, Hidden. The boxes only show the file's
    // attributes: a click doesn't change them.
    auto* attributes = new QHBoxLayout;
    const std::array<QString, 3> captions = {QStringLiteral("Read-only"), QStringLiteral("Hidden"),
                                             QStringLiteral("Archive")};
    for (size_t i = 0; i < CHKATTR.size(); ++i) {
        CHKATTR[i] = new QCheckBox(captions[i], FRAMGENERAL);
        CHKATTR[i]->setAttribute(Qt::WA_TransparentForMouseEvents);
        CHKATTR[i]->setFocusPolicy(Qt::NoFocus);
    }
    for (const size_t i : {2, 0, 1})
        attributes->addWidget(CHKATTR[i]);
    attributes->addStretch();
    general->addRow(attributes);
    TABPROPS->addTab(FRAMGENERAL, QStringLiteral("General"));

    FRAMPIC = new QWidget(TABPROPS);
    auto* picture = new QFormLayout(FRAMPIC);
    picture->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    TXTPICTYPE = addField(FRAMPIC, QStringLiteral("File type:"), NothingYet);
    TXTPICWIDTH = addField(FRAMPIC, QStringLiteral("Picture width:"), NothingYet);
    TXTPICHEIGHT = addField(FRAMPIC, QStringLiteral("Picture height:"), NothingYet);
    TXTPICPIXELDEPTH = addField(FRAMPIC, QStringLiteral("Pixel depth:"), NothingYet);
    TABPROPS->addTab(FRAMPIC, QStringLiteral("Picture"));

    FRAMDOCUMENT = new QWidget(TABPROPS);
    auto* document = new QFormLayout(FRAMDOCUMENT);
    document->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    TXTDOCPATH = addField(FRAMDOCUMENT, QStringLiteral("File:"), NothingYet);
    TXTDOCPAGES = addField(FRAMDOCUMENT, QStringLiteral("Pages:"), NothingYet);
    TXTDOCLINES = addField(FRAMDOCUMENT, QStringLiteral("Lines:"), NothingYet);
    TXTDOCLEN = addField(FRAMDOCUMENT, QStringLiteral("Characters:"), NothingYet);
    TXTWORDS = addField(FRAMDOCUMENT, QStringLiteral("Words:"), NothingYet);
    TABPROPS->addTab(FRAMDOCUMENT, QStringLiteral("Document"));

    // Placed in the middle of the screen unless a stored place says otherwise.
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        move(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size(), screen->geometry()).topLeft());
}

// A row of a tab: its caption and a display box on the tab's colour.
QLineEdit* frmProps::addField(QWidget* tab, const QString& caption, const QString& text)
{
    QLineEdit* box = displayBox(tab, text);
    QPalette face = box->palette();
    face.setColor(QPalette::Base, face.color(QPalette::Button));
    box->setPalette(face);
    static_cast<QFormLayout*>(tab->layout())->addRow(caption, box);
    return box;
}

void frmProps::Form_Load()
{
    StoreAndFileServices& library = StoreAndFileServices::instance();
    library.FORMLOAD(PlacementGroup, this, false);
    library.RESIZEBTNCLOSE(this, BTNCLOSE);
    PICICON->setFixedSize(IconSize, IconSize);

    const picinfo::PropertiesRequest& request = picinfo::propertiesRequest();
    UPDATEINFO(request.path);
    if (request.fileType == PictureType) {
        UPDATEPICINFO(FILEFULLPATH.isEmpty() ? request.path : FILEFULLPATH);
        TABPROPS->removeTab(TABPROPS->indexOf(FRAMDOCUMENT));
        return;
    }
    const auto document = [&] {
        UPDATEDOCINFO(request.path, request.documentText, request.documentSelection, request.documentBox);
    };
    if (request.fileType == DocumentType) {
        document();
        TABPROPS->removeTab(TABPROPS->indexOf(FRAMPIC));
    } else if (request.fileType == UntitledType) {
        // A document never saved has no file to tell of: the Document tab alone.
        document();
        TABPROPS->removeTab(TABPROPS->indexOf(FRAMGENERAL));
        TABPROPS->removeTab(TABPROPS->indexOf(FRAMPIC));
    } else {
        TABPROPS->removeTab(TABPROPS->indexOf(FRAMDOCUMENT));
        TABPROPS->removeTab(TABPROPS->indexOf(FRAMPIC));
    }
}

void frmProps::Form_Unload()
{
    StoreAndFileServices::instance().FORMSAVE(PlacementGroup, this, false);
}

void frmProps::BTNCLOSE_Click()
{
    Forms::unload<frmProps>();
}

// The Picture tab from the file's header. A file of a type the reader doesn't know
// leaves the boxes as they are; a failure of the reader is shown by the reader.
void frmProps::UPDATEPICINFO(const QString& FILEPATH)
{
    PictureServices& library = PictureServices::instance();
    library.IMAGEFILE = FILEPATH;
    library.GETIMAGEFILEINFO();
    if (library.IMAGETYPE == platform::UnknownImage)
        return;
    const QString pixels = QStringLiteral(" pixels");
    TXTPICTYPE->setText(platform::imageTypeText(library.IMAGETYPE));
    TXTPICHEIGHT->setText(QString::number(library.IMAGEHEIGHT) + pixels);
    TXTPICWIDTH->setText(QString::number(library.IMAGEWIDTH) + pixels);
    TXTPICPIXELDEPTH->setText(library.GETCOLORDEPTH(QString::number(library.IMAGEDEPTH)));
}
