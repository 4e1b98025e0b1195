#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>

class Form;

// The shared service class of the maker's programs: the settings store, file and
// path services, and (in their own folders) the other services. One instance,
// reached through clsLibrary::instance(). Operations that belong to another
// subsystem are defined in that subsystem's folder.
class clsLibrary {
public:
    static clsLibrary& instance();

    // --- Settings store -------------------------------------------------------
    // KEY is the root handle as signed decimal text ("-2147483647" is
    // HKEY_CURRENT_USER). A value longer than 254 characters, absent, or of a type
    // other than text reads as SDEFAULT.
    QString REGSTRREAD(const QString& KEY, const QString& SUBKEY, const QString& ITEM,
                       const QString& SDEFAULT = QString());
    bool REGSTRWRITE(const QString& KEY, const QString& SUBKEY, const QString& ITEM, const QString& DATA);
    // Despite their names these two write: a 32-bit number and a byte array.
    QString REGDWORDREAD(int32_t hKey, const QString& STRPATH, const QString& VALNAME, int32_t SDATAVAL);
    bool REGBINARYREAD(const QString& KEY, const QString& SUBKEY, const QString& ITEM, const QByteArray& DATA);
    // Stores the fixed toolbar record 100, 0, 0, 0, 101.
    void REGBINARYWRITE();

    // The root handles as the text that the store operations take.
    static QString currentUserKey();  // "-2147483647"
    static QString localMachineKey(); // "-2147483646"
    // "SOFTWARE\<company>\<title>", the base of the program's own keys.
    static QString programKey();
    // "SOFTWARE\<company>", the base of the keys shared by the maker's programs.
    static QString companyKey();

    // --- File and path services ----------------------------------------------
    QString FILECHK(const QString& FILENAME);
    bool FILEEXISTS(const QString& PATHSTR);
    // Creates a missing folder (one level) and answers whether it existed before.
    bool FOLDEREXIST(const QString& PATHSTR);
    QString FILENAMELENCHK(const QString& FILENAME);
    QString GETFOLDERPATH(const QString& FILEPATH);
    QString GETWINDOWSDIR();
    QString GETDESKTOPDIR();
    QString FILESLOCATION();
    // Moves the file to the desktop's trash after the user confirms.
    void FILEDELETE(const QString& CURRENTFILENAME);
    void FILEMOVE(const QString& FILELOCATION, const QString& FILEDESTINATION);
    void FILERENAME(const QString& CURRENTFILENAME, const QString& NEWFILENAME);
    void FOLDERBROWSE(Form* CURRENTFORM, const QString& CURRENTFLDRLOCATION, Form* FORMNAME);
    void INTERNETACCESS(const QString& HWND, const QString& LINKTYPESTR, const QString& ADDRESS);

    // What FOLDERBROWSE hands to the form it shows.
    Form* browseCallingForm() const { return browseForm_; }
    QString browseFolderLocation() const { return browseLocation_; }

private:
    clsLibrary() = default;
    Form* browseForm_ = nullptr;
    QString browseLocation_;
};
