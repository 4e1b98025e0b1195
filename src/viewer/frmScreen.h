#pragma once

#include "platform/core/Picture.h"
#include "platform/widgets/Form.h"
#include "viewer/PictureLabel.h"
#include "viewer/PicturePrefetch.h"

#include <QSet>
#include <QString>

#include <cstdint>
#include <memory>

class QLabel;
class QTimer;

// The full-screen show of the album: one picture at a time, at its natural size in
// the middle of a black screen, with a caption band along the bottom edge and a new
// picture every five seconds. The show keeps no copy of the album: it reads the
// number of slots from the store once at start and one path at every step.
//
//  +-----------------------------------------------+
//  |                  (black form)                 |
//  |          +-------------------------+          |
//  |          | IMGMAIN, centred on the |          |
//  |          | whole screen            |          |
//  |          +-------------------------+          |
//  | LBLDESC  name (n of N), in front of IMGMAIN   |
//  +-----------------------------------------------+
class frmScreen : public Form {
    Q_OBJECT
public:
    frmScreen();
    ~frmScreen() override;

    void Form_Load() override;
    void Form_Unload() override;
    void Form_Resize() override;
    void TMRPICS_Timer();

    // Keys and mouse buttons (frmScreen_controls.cpp).
    void Form_KeyUp(int KeyCode, int Shift);
    void Form_MouseUp(int Button, int Shift, float X, float Y);
    void IMGMAIN_MouseUp(int Button, int Shift, float X, float Y);
    void LBLDESC_MouseUp(int Button, int Shift, float X, float Y);
    void LBLDESC_Click();

    void SHOWPICTURE();
    void SETCAPTION();
    void PLACECONTROLS();
    void FINDNAME();

    static constexpr int Interval = 5000;    // ms between two timed steps
    static constexpr float BandHeight = 540; // twips, whatever the caption

    // Controls.
    PictureLabel* IMGMAIN = nullptr;
    QLabel* LBLDESC = nullptr;
    QTimer* TMRPICS = nullptr;

    // The show's state.
    int32_t PICNUM = 0;   // the picture on the screen from 1; 0 once the order has wrapped
    int16_t PICCOUNT = 0; // the album's slots as stored
    bool PAUSED = false;
    QString PICPATH;      // the path last asked for
    QString PICNAME;      // the name FINDNAME took from it
    int16_t NAMESCAN = 0; // FINDNAME's counter

protected:
    void showEvent(QShowEvent* event) override;

private:
    // Building the window (frmScreen_controls.cpp).
    void createControls();
    void connectEvents();
    void coverScreen();

    // Yields to the event loop as its last act: the form may be gone when it returns.
    void advance();
    void stepForward();
    void stepBackward();

    void buttonUp(int Button, bool onBackground);
    void togglePause(bool onBackground);
    void restartTimer();
    void leave();
    QString captionText(bool paused) const;

    // The pictures and those decoded ahead.
    void setPicture(const QString& path, platform::PicturePart picture);
    PicturePrefetch::Keep visiblePart() const;
    void prefetchAround();
    void uncoverPicture();

    // The natural size of the picture in IMGMAIN, in twips.
    float pictureWidth_ = 0;
    float pictureHeight_ = 0;
    // The picture in IMGMAIN and the file it came from.
    platform::PicturePart shown_;
    QString shownPath_;
    std::unique_ptr<PicturePrefetch> pictures_ = std::make_unique<PicturePrefetch>();
    // Keys pressed while the show had the keyboard: only their release counts.
    QSet<int> keysDown_;
};
