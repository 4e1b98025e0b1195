#pragma once

#include "platform/widgets/Form.h"

#include <QString>

#include <initializer_list>

class QCheckBox;
class QComboBox;
class QFrame;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTabBar;

namespace zuv {
class PANEL;
class SPIN;
class TXTSEP;
} // namespace zuv

// Kept between openings of the page setup for as long as the program runs.
extern QString PSETUPORIENT;  // the orientation of the last OK, or as found at the last loading
extern QString PSETUPPAPER;   // the paper number of the last OK
extern QString PSETUPPRINTER; // the printer's name at the last OK

// The page setup: printer, paper, orientation and margins on the first tab, with a
// miniature of the sheet drawn to scale; the header and footer of printed pages on
// the second. Printer, paper and orientation go to the printer as they are chosen,
// since the miniature reads them from there; the settings are stored only by OK.
// Opened through PrintServices::PAGESETUPPAGESHOW and PAGESETUPHEADFOOTSHOW.
//
//  +-TABSTRIP1------------------------------------------+
//  | Page | Header/Footer |                             |
//  | FRAMPAGE                                           |
//  |  Printer:     [CBOPRINTERS                     ]   |
//  |  Paper Size:  [CBOPAPER      ]   +-PICWINDOW---+   |
//  |  Orientation: (o) Portrait       | PICPAPER    |   |
//  |               ( ) Landscape      |  SHPAREA    |   |
//  |  --- TXTSEP1 Text Margins ---    |   PICSHADOW |   |
//  |  Left: [UDNLEFT]  Right:  [..]   +-------------+   |
//  |  Top:  [UDNTOP ]  Bottom: [..]   PICDIMINSIONS     |
//  |  --- TXTSEP2 Print Settings ---   LBLWIDTH         |
//  |  [Defaults]                       LBLHEIGHT        |
//  |-PANEL1----------------------------[ OK ][Cancel]---|
//  +----------------------------------------------------+
//
// FRAMHEADERFOOTER, in the same place: BTNDEFAULTSHF; FRAMHEADER with its check
// boxes above PICHEAD (date, title, time, rule); FRAMFOOTER with its check boxes
// above PICFOOT (rule, first field, page number, second field).
class frmPSetup : public Form {
    Q_OBJECT
public:
    frmPSetup();
    ~frmPSetup() override;

    void Form_Load() override;
    void Form_Unload() override;

    void TABSTRIP1_Click();
    // The first tab.
    void CBOPRINTERS_Click();
    void CBOPAPER_Click();
    void OPTORIENTPORT_Click();
    void OPTORIENTLAND_Click();
    // A change of any of the four margin controls.
    void UDN_Change();
    void BTNDEFAULTS_Click();
    // The second tab.
    void BTNDEFAULTSHF_Click();
    void CHKHEADER_Click();
    void CHKFOOTER_Click();
    void TXTHEADTITLE_Change();
    void TXTFOOTFIELD1_Change();
    void BTNOK_Click();
    void BTNCANCEL_Click();

    // Tab keys of TABSTRIP1.
    static constexpr const char* PageKey = "PAGE";
    static constexpr const char* HeaderFooterKey = "HEADERFOOTER";

    QTabBar* TABSTRIP1 = nullptr;

    QWidget* FRAMPAGE = nullptr;
    QComboBox* CBOPRINTERS = nullptr;
    QComboBox* CBOPAPER = nullptr;
    QRadioButton* OPTORIENTPORT = nullptr;
    QRadioButton* OPTORIENTLAND = nullptr;
    zuv::TXTSEP* TXTSEP1 = nullptr;
    zuv::SPIN* UDNLEFT = nullptr;
    zuv::SPIN* UDNRIGHT = nullptr;
    zuv::SPIN* UDNTOP = nullptr;
    zuv::SPIN* UDNBOTTOM = nullptr;
    zuv::TXTSEP* TXTSEP2 = nullptr;
    QPushButton* BTNDEFAULTS = nullptr;
    // The miniature: the sheet, its shadow and its text area in a fixed square.
    QFrame* PICWINDOW = nullptr;
    QFrame* PICSHADOW = nullptr;
    QFrame* PICPAPER = nullptr;
    QFrame* SHPAREA = nullptr;
    QWidget* PICDIMINSIONS = nullptr;
    QLabel* LBLWIDTH = nullptr;
    QLabel* LBLHEIGHT = nullptr;

    QWidget* FRAMHEADERFOOTER = nullptr;
    QPushButton* BTNDEFAULTSHF = nullptr;
    QGroupBox* FRAMHEADER = nullptr;
    QCheckBox* CHKHEADER = nullptr;
    QCheckBox* CHKHEADTITLE = nullptr;
    QCheckBox* CHKHEADDATE = nullptr;
    QCheckBox* CHKHEADTIME = nullptr;
    QCheckBox* CHKHEADLINE = nullptr;
    QFrame* PICHEAD = nullptr;
    QLineEdit* TXTHEADTITLE = nullptr;
    QLineEdit* TXTHEADDATE = nullptr;
    QLineEdit* TXTHEADTIME = nullptr;
    QFrame* LNHEADLINE = nullptr;
    QGroupBox* FRAMFOOTER = nullptr;
    QCheckBox* CHKFOOTER = nullptr;
    QCheckBox* CHKFOOTFIELD1 = nullptr;
    QCheckBox* CHKFOOTFIELD2 = nullptr;
    QCheckBox* CHKFOOTPGNO = nullptr;
    QCheckBox* CHKFOOTLINE = nullptr;
    QFrame* PICFOOT = nullptr;
    QLineEdit* TXTFOOTFIELD1 = nullptr;
    QLineEdit* TXTFOOTFIELD2 = nullptr;
    QLineEdit* TXTFOOTPGNO = nullptr;
    QFrame* LNFOOTLINE = nullptr;

    zuv::PANEL* PANEL1 = nullptr;
    QPushButton* BTNOK = nullptr;
    QPushButton* BTNCANCEL = nullptr;

    // The miniature's frame, a square, in twips.
    static constexpr float PictureWindowSize = 2835;

signals:
    // PAGEDRAW has drawn the miniature and its labels anew.
    void pageDrawn();

private:
    void createControls();
    QWidget* createPageTab();
    QWidget* createHeaderFooterTab();
    void connectHandlers();

    void PAPERSELECT();
    void PAGEDRAW();
    // A check box of a page picture: OK can be pressed, and the picture shows the
    // element when the box is checked.
    void pictureBoxClick(QCheckBox* box, QWidget* element);
    // CHKHEADER and CHKFOOTER: the part's boxes and texts are enabled and the
    // picture coloured as the switch says.
    void partSwitchClick(QCheckBox* part, std::initializer_list<QWidget*> boxes,
                         std::initializer_list<QWidget*> picture, std::initializer_list<QWidget*> texts);
    // The default texts of the title and the two footer fields.
    static QString defaultTitle();
    static QString defaultField1();
    static QString defaultField2();

    bool MARGINSBUSY = false;
    bool PRINTERAPPLY = false;
    QString PAPERTEXT;
    QString ORIENTTEXT;
};
