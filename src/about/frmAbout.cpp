#include "about/frmAbout.h"

#include "config.h"
#include "platform/core/App.h"
#include "platform/core/Error.h"
#include "presentation/TXTSEP.h"
#include "settings/StoreAndFileServices.h"

#include <QAction>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QRadialGradient>
#include <QVBoxLayout>

namespace {

constexpr int Margin = 8;
constexpr int Spacing = 2;

QLabel* label(QWidget* parent, const QString& text,
              Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter)
{
    auto* control = new QLabel(text, parent);
    control->setTextFormat(Qt::PlainText);
    control->setAlignment(alignment);
    return control;
}

} // namespace

frmAbout::frmAbout() : Form(QStringLiteral("frmAbout"))
{
    createControls();
}

frmAbout::~frmAbout() = default;

void frmAbout::createControls()
{
    setWindowTitle(QStringLiteral("About"));
    makeFixedDialog(DesignWidth, DesignHeight);
    QWidget* client = clientArea();
    auto* content = new QVBoxLayout(client);
    content->setContentsMargins(Margin, Margin, Margin, Margin);
    content->setSpacing(Spacing);

    auto* top = new QHBoxLayout;
    top->setSpacing(Margin);
    IMGLOGO = new QLabel(client);
    IMGLOGO->setFixedSize(LogoSize);
    IMGLOGO->setPixmap(drawLogo(devicePixelRatioF()));
    IMGLOGO->setToolTip(QStringLiteral("Visit ZUV Online Website"));
    IMGLOGO->installEventFilter(this);
    top->addWidget(IMGLOGO, 0, Qt::AlignTop);
    LBWARNING = label(client, QString(), Qt::AlignLeft | Qt::AlignTop);
    LBWARNING->setWordWrap(true);
    QFont small = LBWARNING->font();
    small.setPointSizeF(small.pointSizeF() * 0.85);
    LBWARNING->setFont(small);
    top->addWidget(LBWARNING, 1);
    content->addLayout(top);

    // The title band: the name in the light colour on the dark one, between an
    // etched line above and below.
    FRAMTITLE = new QFrame(client);
    FRAMTITLE->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    FRAMTITLE->setBackgroundRole(QPalette::Dark);
    FRAMTITLE->setAutoFillBackground(true);
    auto* band = new QHBoxLayout(FRAMTITLE);
    band->setContentsMargins(Margin, 0, Margin, 0);
    LBLPROGRAMNAME = label(FRAMTITLE, QStringLiteral("Title"));
    QFont title(QStringLiteral("Times New Roman"));
    title.setStyleHint(QFont::Serif);
    title.setBold(true);
    title.setPointSizeF(21.75);
    LBLPROGRAMNAME->setFont(title);
    LBLPROGRAMNAME->setForegroundRole(QPalette::Light);
    band->addWidget(LBLPROGRAMNAME);
    content->addWidget(FRAMTITLE);

    auto* facts = new QGridLayout;
    facts->setHorizontalSpacing(Margin);
    facts->setVerticalSpacing(0);
    LBLVERS = label(client, QStringLiteral("Version:"));
    LBLVERSNO = label(client, QStringLiteral("Number"));
    LBLREGISTERED = label(client, QStringLiteral("Registered to:"));
    LBLREGNAME = label(client, QStringLiteral("Name"));
    LBLREGCO = label(client, QStringLiteral("Company"));
    facts->addWidget(LBLVERS, 0, 0);
    facts->addWidget(LBLVERSNO, 0, 1);
    facts->setColumnStretch(2, 1);
    facts->addWidget(LBLREGISTERED, 0, 3);
    facts->addWidget(LBLREGNAME, 0, 4);
    facts->addWidget(LBLREGCO, 1, 4);
    facts->setColumnStretch(4, 2);
    content->addLayout(facts);

    LBLWRITTEN = label(client, QStringLiteral("Written By"), Qt::AlignCenter);
    LBLTHANKS =
        label(client, QStringLiteral("With thanks to the Qt and SQLite projects, on which it is built."),
              Qt::AlignCenter);
    LBLLEGAL = label(client, QStringLiteral("Legal"), Qt::AlignCenter);
    QFont bold = LBLLEGAL->font();
    bold.setBold(true);
    LBLLEGAL->setFont(bold);
    content->addWidget(LBLWRITTEN);
    content->addWidget(LBLTHANKS);
    content->addWidget(LBLLEGAL);
    content->addStretch();

    TSEP2 = new zuv::TXTSEP(QString(), client);
    content->addWidget(TSEP2);
    BTNCLOSE = new QPushButton(QStringLiteral("&Close"), client);
    connect(BTNCLOSE, &QPushButton::clicked, this, platform::guarded(this, &frmAbout::BTNCLOSE_Click));
    content->addWidget(BTNCLOSE, 0, Qt::AlignRight);
    setCloseButton(BTNCLOSE);

    centreOnScreen();
}

void frmAbout::Form_Load()
{
    StoreAndFileServices& library = StoreAndFileServices::instance();
    LBLPROGRAMNAME->setText(platform::App::Title().toUpper());
    LBLVERSNO->setText(library.GETAPPNUMBER());
    LBLREGNAME->setText(library.GETCOMPANYNAME());
    LBLREGCO->setText(library.GETCOMPANYREG());
    LBLWRITTEN->setText(QStringLiteral("Written and Developed by ") + platform::App::CompanyName());
    LBLLEGAL->setText(QStringLiteral("Copyright \u00A9 ") + platform::App::CompanyName() +
                      QStringLiteral(". All rights reserved."));
    // The logo is a link: the desktop's hand pointer says so.
    IMGLOGO->setCursor(Qt::PointingHandCursor);
    LBWARNING->setText(QStringLiteral(
        "Warning: this program is protected by copyright law and international treaties. Copying or "
        "distributing it, or any part of it, without permission may result in civil and criminal "
        "penalties."));
}

// The dialog stays open while the browser shows the maker's site.
void frmAbout::IMGLOGO_Click()
{
    StoreAndFileServices::instance().INTERNETACCESS(QString::number(winId()), QString(),
                                                    QStringLiteral(VISTARRO_WEB_ADDRESS));
}

void frmAbout::BTNCLOSE_Click()
{
    Forms::unload<frmAbout>();
}

// A click on the logo: the left button pressed and released on it.
bool frmAbout::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == IMGLOGO && event->type() == QEvent::MouseButtonRelease) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() == Qt::LeftButton && IMGLOGO->rect().contains(mouse->position().toPoint())) {
            IMGLOGO_Click();
            return true;
        }
    }
    return Form::eventFilter(watched, event);
}

QPixmap frmAbout::drawLogo(qreal pixelRatio)
{
    QPixmap logo(LogoSize * pixelRatio);
    logo.setDevicePixelRatio(pixelRatio);
    QPainter painter(&logo);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    const QRectF area(QPointF(0, 0), QSizeF(LogoSize));

    // Dusk over water: deep blue into teal, with a low warm sun on the right.
    QLinearGradient sky(area.topLeft(), area.bottomRight());
    sky.setColorAt(0.0, QColor(0x1d, 0x35, 0x57));
    sky.setColorAt(1.0, QColor(0x2a, 0x9d, 0x8f));
    painter.fillRect(area, sky);
    QRadialGradient sun(QPointF(area.width() * 0.82, area.height() * 0.3), area.height() * 0.5);
    sun.setColorAt(0.0, QColor(0xf4, 0xa2, 0x61, 200));
    sun.setColorAt(1.0, QColor(0xf4, 0xa2, 0x61, 0));
    painter.fillRect(area, sun);

    QFont name(QStringLiteral("Times New Roman"));
    name.setStyleHint(QFont::Serif);
    name.setBold(true);
    name.setPixelSize(30);
    painter.setFont(name);
    const QRectF nameArea = area.adjusted(0, 0, 0, -area.height() * 0.25);
    painter.setPen(QColor(0, 0, 0, 90));
    painter.drawText(nameArea.translated(1.5, 1.5), Qt::AlignCenter, platform::App::Title());
    painter.setPen(Qt::white);
    painter.drawText(nameArea, Qt::AlignCenter, platform::App::Title());

    QFont tagline = name;
    tagline.setBold(false);
    tagline.setItalic(true);
    tagline.setPixelSize(11);
    painter.setFont(tagline);
    painter.setPen(QColor(0xe9, 0xf5, 0xf2));
    painter.drawText(area.adjusted(0, area.height() * 0.55, 0, -4), Qt::AlignHCenter | Qt::AlignTop,
                     QStringLiteral("slideshow photo album"));
    return logo;
}
