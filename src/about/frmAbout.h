#pragma once

#include "platform/widgets/Form.h"

#include <QSize>

class QFrame;
class QLabel;
class QPixmap;
class QPushButton;

namespace zuv {
class TXTSEP;
} // namespace zuv

// The about box: the program's name, version and maker, who the machine is
// registered to, and a link to the maker's web site behind the logo. A small fixed
// dialog in the middle of the screen, shown modally over the window whose Help menu
// opened it; it stores nothing.
//
//  +----------------------------------------------+
//  | IMGLOGO   LBWARNING                          |
//  |=FRAMTITLE: LBLPROGRAMNAME====================|
//  | LBLVERS LBLVERSNO     LBLREGISTERED LBLREGNAME|
//  |                                     LBLREGCO |
//  |                 LBLWRITTEN                   |
//  |                 LBLTHANKS                    |
//  |                 LBLLEGAL                     |
//  | ------------------ TSEP2 ------------------- |
//  |                                  [ Close ]   |
//  +----------------------------------------------+
class frmAbout : public Form {
    Q_OBJECT
public:
    frmAbout();
    ~frmAbout() override;

    void Form_Load() override;
    void IMGLOGO_Click();
    void BTNCLOSE_Click();

    // The client area in twips, and the logo in pixels.
    static constexpr int DesignWidth = 7530;
    static constexpr int DesignHeight = 4185;
    static constexpr QSize LogoSize{170, 81};

    QLabel* IMGLOGO = nullptr;
    QLabel* LBWARNING = nullptr;
    QFrame* FRAMTITLE = nullptr;
    QLabel* LBLPROGRAMNAME = nullptr;
    QLabel* LBLVERS = nullptr;
    QLabel* LBLVERSNO = nullptr;
    QLabel* LBLREGISTERED = nullptr;
    QLabel* LBLREGNAME = nullptr;
    QLabel* LBLREGCO = nullptr;
    QLabel* LBLWRITTEN = nullptr;
    QLabel* LBLTHANKS = nullptr;
    QLabel* LBLLEGAL = nullptr;
    zuv::TXTSEP* TSEP2 = nullptr;
    QPushButton* BTNCLOSE = nullptr;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void createControls();
    // The program's name on a gradient, drawn for the screen's pixel ratio.
    static QPixmap drawLogo(qreal pixelRatio);
};
