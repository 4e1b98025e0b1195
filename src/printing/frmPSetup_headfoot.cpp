// The page setup's second tab: the switches and texts of the header and footer,
// with a picture of each that shows what the switches draw.
#include "printing/frmPSetup.h"

#include "platform/core/App.h"
#include "printing/PageSettings.h"
#include "settings/StoreAndFileServices.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>

namespace {

// The picture of a part that is switched on has the window colour, one that is off
// the colour of a button's face.
void colourPicture(QWidget* control, bool on)
{
    const QColor colour = QApplication::palette(control).color(on ? QPalette::Base : QPalette::Button);
    QPalette palette = control->palette();
    palette.setColor(QPalette::Window, colour);
    palette.setColor(QPalette::Base, colour);
    control->setPalette(palette);
}

} // namespace

QString frmPSetup::defaultTitle()
{
    return platform::App::Title() + QStringLiteral(" Report.");
}

QString frmPSetup::defaultField1()
{
    return StoreAndFileServices::instance().GETCOMPANYNAME();
}

QString frmPSetup::defaultField2()
{
    return printing::mainFileName();
}

void frmPSetup::BTNDEFAULTSHF_Click()
{
    CHKHEADER->setCheckState(Qt::Checked);
    CHKFOOTER->setCheckState(Qt::Checked);
    TXTHEADTITLE->setText(defaultTitle());
    TXTFOOTFIELD1->setText(defaultField1());
    TXTFOOTFIELD2->setText(defaultField2());
    for (QCheckBox* box : {CHKFOOTFIELD1, CHKFOOTFIELD2, CHKFOOTLINE, CHKFOOTPGNO, CHKFOOTER, CHKHEADTITLE,
                           CHKHEADLINE, CHKHEADDATE, CHKHEADTIME, CHKHEADER})
        box->setCheckState(Qt::Checked);
}

void frmPSetup::pictureBoxClick(QCheckBox* box, QWidget* element)
{
    BTNOK->setEnabled(true);
    element->setVisible(box->checkState() == Qt::Checked);
}

void frmPSetup::partSwitchClick(QCheckBox* part, std::initializer_list<QWidget*> boxes,
                                std::initializer_list<QWidget*> picture,
                                std::initializer_list<QWidget*> texts)
{
    BTNOK->setEnabled(true);
    const bool on = part->checkState() == Qt::Checked;
    for (QWidget* box : boxes)
        box->setEnabled(on);
    for (QWidget* control : picture)
        colourPicture(control, on);
    for (QWidget* text : texts)
        text->setEnabled(on);
}

void frmPSetup::CHKHEADER_Click()
{
    partSwitchClick(CHKHEADER, {CHKHEADDATE, CHKHEADLINE, CHKHEADTITLE, CHKHEADTIME},
                    {PICHEAD, TXTHEADTITLE, TXTHEADDATE, TXTHEADTIME}, {TXTHEADTITLE});
}

void frmPSetup::CHKFOOTER_Click()
{
    partSwitchClick(CHKFOOTER, {CHKFOOTFIELD1, CHKFOOTFIELD2, CHKFOOTLINE, CHKFOOTPGNO},
                    {PICFOOT, TXTFOOTPGNO, TXTFOOTFIELD1, TXTFOOTFIELD2}, {TXTFOOTFIELD1, TXTFOOTFIELD2});
}

void frmPSetup::TXTHEADTITLE_Change()
{
    BTNOK->setEnabled(true);
}

void frmPSetup::TXTFOOTFIELD1_Change()
{
    BTNOK->setEnabled(true);
}
