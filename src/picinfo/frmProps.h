#pragma once

#include "platform/widgets/Form.h"

#include <QDateTime>
#include <QIcon>
#include <QString>

#include <array>
#include <cstdint>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;
class QWidget;

namespace zuv {
class PANEL;
class TXTSEP;
} // namespace zuv

namespace picinfo {

// What PictureServices::GETPROPERTIES hands to the dialog it opens: kept here from the
// call until the dialog has loaded and read it.
struct PropertiesRequest {
    QString path;
    QString fileType;
    // A text document's figures: its text, its selection and the control holding it.
    QString documentText;
    QString documentSelection;
    QWidget* documentBox = nullptr;
};

PropertiesRequest& propertiesRequest();

} // namespace picinfo

// The properties of one file, for display only: what the file system says of it on
// the General tab, for a picture what its header says on the Picture tab, and for a
// text document its pages, lines, characters and words on the Document tab.
// Opened through PictureServices::GETPROPERTIES, loaded afresh for every opening and
// unloaded by Close.
//
//  +------------------------------------------+
//  | PICICON  TXTFILENAME                     |
//  | +-TABPROPS-----------------------------+ |
//  | | General | Picture | Document |       | |
//  | |  Type:      TXTTYPE                  | |
//  | |  Location:  TXTLOCATION              | |
//  | |  Size:      TXTSIZE                  | |
//  | |  Modified:  TXTMODIFIED              | |
//  | |  ------------ TSEP1 --------------   | |
//  | |  [ ] Archive [ ] Read-only [ ] Hidden| |
//  | +--------------------------------------+ |
//  |-PANEL1-----------------------[ Close ]---|
//  +------------------------------------------+
class frmProps : public Form {
    Q_OBJECT
public:
    frmProps();
    ~frmProps() override;

    // Loads a fresh dialog (unloading one that is still loaded) and returns it: the
    // FORMNAME that GETPROPERTIES takes.
    static Form& load();

    void Form_Load() override;
    void Form_Unload() override;
    void BTNCLOSE_Click();

    // Whether the file is read-only: bit 0x01 of FILEATTR.
    bool ATTRREADONLY() const;
    // The path with each folder in the spelling that its directory holds. A name
    // spelt otherwise, which on this case-sensitive file system names nothing, is
    // matched to the directory's entry regardless of case; an entry spelt exactly
    // as given wins. The empty text when a folder of it can't be confirmed.
    // A final separator is dropped, except from the root "/".
    static QString PROPERCASEPATH(const QString& PATHIN);
    // A fixed-size platform text cut at its first NUL; a text without one has its
    // surrounding blanks removed.
    static QString TRIMNULL(const QString& TEXTSTR);
    // Fills the common fields and the General tab for the file at FNSTR.
    void UPDATEINFO(const QString& FNSTR);
    // The size text: "1.50KB (1,536 Bytes)", in the user's number format.
    static QString FORMATSIZE(int64_t size);

    // The size of the file's icon, in pixels.
    static constexpr int IconSize = 32;
    // Attribute bits of FILEATTR.
    static constexpr uint32_t AttrReadOnly = 0x01;
    static constexpr uint32_t AttrHidden = 0x02;
    static constexpr uint32_t AttrDirectory = 0x10;
    static constexpr uint32_t AttrArchive = 0x20;

    // Controls.
    QWidget* PICBOX = nullptr;
    QLabel* PICICON = nullptr;
    QLineEdit* TXTFILENAME = nullptr;
    QTabWidget* TABPROPS = nullptr;
    QWidget* FRAMGENERAL = nullptr;
    QLineEdit* TXTTYPE = nullptr;
    QLineEdit* TXTLOCATION = nullptr;
    QLineEdit* TXTSIZE = nullptr;
    QLineEdit* TXTMODIFIED = nullptr;
    zuv::TXTSEP* TSEP1 = nullptr;
    // 0 read-only, 1 hidden, 2 archive.
    std::array<QCheckBox*, 3> CHKATTR{};
    QWidget* FRAMPIC = nullptr;
    QLineEdit* TXTPICTYPE = nullptr;
    QLineEdit* TXTPICWIDTH = nullptr;
    QLineEdit* TXTPICHEIGHT = nullptr;
    QLineEdit* TXTPICPIXELDEPTH = nullptr;
    QWidget* FRAMDOCUMENT = nullptr;
    QLineEdit* TXTDOCPATH = nullptr;
    QLineEdit* TXTDOCPAGES = nullptr;
    QLineEdit* TXTDOCLINES = nullptr;
    QLineEdit* TXTDOCLEN = nullptr;
    QLineEdit* TXTWORDS = nullptr;
    zuv::PANEL* PANEL1 = nullptr;
    QPushButton* BTNCLOSE = nullptr;

    // What is known of the file.
    QDateTime FILEWRITETIME; // last write, local time, whole seconds
    uint32_t FILEATTR = 0;
    QIcon FILEICON;        // null when none is held
    int64_t FILESIZE = 0;  // bytes
    QString FILEDISPNAME;  // the name to show
    QString FILEFOUNDNAME; // the name as the directory spells it
    QString FILEFULLPATH;
    QString FILEFOLDER; // with a final separator
    QString FILETYPENAME;

private:
    void createControls();
    QLineEdit* addField(QWidget* tab, const QString& caption, const QString& text);
    void READFILEINFO();
    void UPDATEPICINFO(const QString& FILEPATH);
    // The Document tab: the document's path, its pages as the printer lays them out
    // with the page setup's margins, its lines as RTFBOXSRC wraps them, its
    // characters and its words. TXTRTFSELSRC isn't used.
    void UPDATEDOCINFO(const QString& path, const QString& TXTRTFSRC, const QString& TXTRTFSELSRC,
                       QWidget* RTFBOXSRC);
};
