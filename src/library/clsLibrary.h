#pragma once

#include "picinfo/PictureServices.h"
#include "presentation/PresentationServices.h"
#include "printing/PrintServices.h"
#include "settings/StoreAndFileServices.h"

#include <utility>

// The shared service class of the maker's programs as the album, the tools and the
// tests see it: every operation of the four layers' services under one name,
// reached through clsLibrary::instance() as before. It keeps no state and does
// nothing itself. Each operation passes its arguments as they are to the service
// that owns it, where it is declared and described:
// - StoreAndFileServices (settings): the settings store, files and paths, window
//   placement, text and number helpers;
// - PresentationServices (presentation): messages, command descriptions, icon
//   menus, the pointer test;
// - PictureServices (picinfo): the image record, the properties dialog, bitmaps;
// - PrintServices (printing): headers and footers, the page setup, the centring of
//   the next print dialog.
// The image record's fields are references to the picture services' own, so a
// write here is read there and the other way round.
//
// Code inside those folders calls its own layer's service or a lower one's. This
// class's library links all four, so a lower folder doesn't see this header.
class clsLibrary {
public:
    static clsLibrary& instance();
    clsLibrary(const clsLibrary&) = delete;
    clsLibrary& operator=(const clsLibrary&) = delete;

    // The image record of the header reader (see PictureServices).
    QString& IMAGEFILE = PictureServices::instance().IMAGEFILE;
    int32_t& IMAGEWIDTH = PictureServices::instance().IMAGEWIDTH;
    int32_t& IMAGEHEIGHT = PictureServices::instance().IMAGEHEIGHT;
    int32_t& IMAGEDEPTH = PictureServices::instance().IMAGEDEPTH;
    int32_t& IMAGETYPE = PictureServices::instance().IMAGETYPE;

// An operation of the facade: static, since the facade keeps no state, and a
// template, so that the service's own overloads and default arguments apply.
#define VISTARRO_PASS_ON(Service, OPERATION)                                                                 \
    template <typename... Arguments> static decltype(auto) OPERATION(Arguments&&... arguments)               \
    {                                                                                                        \
        return Service::instance().OPERATION(std::forward<Arguments>(arguments)...);                         \
    }

    // clang-format off
    // StoreAndFileServices: the settings store, files and paths, window placement, text and number helpers.
    VISTARRO_PASS_ON(StoreAndFileServices, REGSTRREAD)
    VISTARRO_PASS_ON(StoreAndFileServices, REGSTRWRITE)
    VISTARRO_PASS_ON(StoreAndFileServices, REGDWORDREAD)
    VISTARRO_PASS_ON(StoreAndFileServices, REGBINARYREAD)
    VISTARRO_PASS_ON(StoreAndFileServices, REGBINARYWRITE)
    VISTARRO_PASS_ON(StoreAndFileServices, currentUserKey)
    VISTARRO_PASS_ON(StoreAndFileServices, localMachineKey)
    VISTARRO_PASS_ON(StoreAndFileServices, programKey)
    VISTARRO_PASS_ON(StoreAndFileServices, companyKey)
    VISTARRO_PASS_ON(StoreAndFileServices, FILECHK)
    VISTARRO_PASS_ON(StoreAndFileServices, FILEEXISTS)
    VISTARRO_PASS_ON(StoreAndFileServices, FOLDEREXIST)
    VISTARRO_PASS_ON(StoreAndFileServices, FILENAMELENCHK)
    VISTARRO_PASS_ON(StoreAndFileServices, GETFOLDERPATH)
    VISTARRO_PASS_ON(StoreAndFileServices, GETWINDOWSDIR)
    VISTARRO_PASS_ON(StoreAndFileServices, GETDESKTOPDIR)
    VISTARRO_PASS_ON(StoreAndFileServices, FILESLOCATION)
    VISTARRO_PASS_ON(StoreAndFileServices, FILEDELETE)
    VISTARRO_PASS_ON(StoreAndFileServices, FILEMOVE)
    VISTARRO_PASS_ON(StoreAndFileServices, FILERENAME)
    VISTARRO_PASS_ON(StoreAndFileServices, FOLDERBROWSE)
    VISTARRO_PASS_ON(StoreAndFileServices, INTERNETACCESS)
    VISTARRO_PASS_ON(StoreAndFileServices, browseCallingForm)
    VISTARRO_PASS_ON(StoreAndFileServices, browseFolderLocation)
    VISTARRO_PASS_ON(StoreAndFileServices, FORMLOAD)
    VISTARRO_PASS_ON(StoreAndFileServices, FORMSAVE)
    VISTARRO_PASS_ON(StoreAndFileServices, RESIZEBTNCLOSE)
    VISTARRO_PASS_ON(StoreAndFileServices, RESIZEBTNSOKCANCEL)
    VISTARRO_PASS_ON(StoreAndFileServices, TEXTJUSTIFY)
    VISTARRO_PASS_ON(StoreAndFileServices, TEXTJUSTIFYCURRENCY)
    VISTARRO_PASS_ON(StoreAndFileServices, CURRENCYFMT)
    VISTARRO_PASS_ON(StoreAndFileServices, CHARCHECK)
    VISTARRO_PASS_ON(StoreAndFileServices, COMBOINIT)
    VISTARRO_PASS_ON(StoreAndFileServices, GETAPPNUMBER)
    VISTARRO_PASS_ON(StoreAndFileServices, GETCAPTION)
    VISTARRO_PASS_ON(StoreAndFileServices, GETCOMPANYNAME)
    VISTARRO_PASS_ON(StoreAndFileServices, GETCOMPANYREG)
    VISTARRO_PASS_ON(StoreAndFileServices, GETHEXVAL)
    VISTARRO_PASS_ON(StoreAndFileServices, HEX2STR)
    VISTARRO_PASS_ON(StoreAndFileServices, HTMLFORMATCHECK)
    VISTARRO_PASS_ON(StoreAndFileServices, PIECE)
    VISTARRO_PASS_ON(StoreAndFileServices, SHOWUNITS)
    VISTARRO_PASS_ON(StoreAndFileServices, TOKENLEFT)
    VISTARRO_PASS_ON(StoreAndFileServices, TXTCURRENCYLOCK)
    VISTARRO_PASS_ON(StoreAndFileServices, WORDCOUNT)
    VISTARRO_PASS_ON(StoreAndFileServices, PIXELSTOTWIPS)
    VISTARRO_PASS_ON(StoreAndFileServices, TWIPSTOPIXELS)

    // PresentationServices: messages, command descriptions, icon menus and the pointer test.
    VISTARRO_PASS_ON(PresentationServices, MESSAGEBOX)
    VISTARRO_PASS_ON(PresentationServices, MESSAGEBOXFCN)
    VISTARRO_PASS_ON(PresentationServices, OVERWRITECHK)
    VISTARRO_PASS_ON(PresentationServices, STATUSBARCAPTION)
    VISTARRO_PASS_ON(PresentationServices, STATUSTEXTDESC)
    VISTARRO_PASS_ON(PresentationServices, GETTBARDESCRIPTIONS)
    VISTARRO_PASS_ON(PresentationServices, ICOMNUSETUP)
    VISTARRO_PASS_ON(PresentationServices, MENUCREATE)
    VISTARRO_PASS_ON(PresentationServices, MOUSEMOVE)
    VISTARRO_PASS_ON(PresentationServices, MOUSEMOVEMDI)

    // PictureServices: the image record, the properties dialog and the bitmap builders.
    VISTARRO_PASS_ON(PictureServices, GETIMAGEFILEINFO)
    VISTARRO_PASS_ON(PictureServices, GETCOLORDEPTH)
    VISTARRO_PASS_ON(PictureServices, GETPROPERTIES)
    VISTARRO_PASS_ON(PictureServices, CREATEBMP1)
    VISTARRO_PASS_ON(PictureServices, CREATEBMP4)
    VISTARRO_PASS_ON(PictureServices, CREATEBMP8)
    VISTARRO_PASS_ON(PictureServices, CREATEBMP16)
    VISTARRO_PASS_ON(PictureServices, CREATEBMP24)
    VISTARRO_PASS_ON(PictureServices, INITCOLORTBL1)
    VISTARRO_PASS_ON(PictureServices, INITCOLORTBL4)
    VISTARRO_PASS_ON(PictureServices, INITCOLORTBL8)
    VISTARRO_PASS_ON(PictureServices, BITMAPHANDLE)
    VISTARRO_PASS_ON(PictureServices, DRAWBITMAP)

    // PrintServices: headers and footers, the page setup and the print dialog's centring.
    VISTARRO_PASS_ON(PrintServices, PAGEHEADERFOOTERINFO)
    VISTARRO_PASS_ON(PrintServices, PAGEHEADERFOOTERINFOPREVIEW)
    VISTARRO_PASS_ON(PrintServices, PAGESETUPPAGESHOW)
    VISTARRO_PASS_ON(PrintServices, PAGESETUPHEADFOOTSHOW)
    VISTARRO_PASS_ON(PrintServices, HOOKFRMLOAD)
    VISTARRO_PASS_ON(PrintServices, HOOKFRMUNLOAD)
    // clang-format on

#undef VISTARRO_PASS_ON

private:
    clsLibrary() = default;
};
