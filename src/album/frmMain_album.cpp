// The album: the found list, the selected list, the moves between them and the
// stored album, which is the format of record that the viewer reads.
//
// Stored form (settings/AlbumStore.h): "Items" is the number of slots in use; the
// slots "1".."Items" hold one path each, or blank where a picture was removed.
// Each item of LSTSELECTED keeps its slot number in its Tag: a removal blanks that
// very slot, and an add takes the slot after the last item's (slot 1 for an empty
// list) and makes it "Items". So an add never touches a slot that holds a picture
// of the album, and blank slots at the end are taken again instead of piling up.
//
// That holds only if the list shows every picture the store holds. When a read of
// the stored album fails (the store answered with an error, not with "absent"),
// the album is "unread": what is added is listed with Tag 0 and not stored, and
// nothing is blanked but the slots that were read. Each later command that writes
// the album first reads it again; once that read succeeds, the list becomes the
// stored album followed by the pictures added meanwhile, which are stored then.
#include "album/frmMain.h"

#include "library/clsLibrary.h"
#include "platform/core/Conversions.h"
#include "platform/core/Error.h"
#include "platform/core/Registry.h"
#include "platform/widgets/ListView.h"
#include "platform/widgets/Screen.h"
#include "platform/widgets/StatusBar.h"
#include "settings/AlbumStore.h"

#include <QAction>
#include <QDateTime>

using platform::resumeNext;

namespace {

// The local time of day as "HH:mm:ss". Local time looks the time zone up again at
// each call (a look at /etc/localtime), which for thousands of keys costs more
// than listing them; the text is made anew only when the second changes.
QString timeOfDayText()
{
    static qint64 madeInSecond = -1;
    static QString text;
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    const qint64 second = now / 1000;
    if (second != madeInSecond) {
        text = QDateTime::fromMSecsSinceEpoch(now).time().toString(QStringLiteral("HH:mm:ss"));
        madeInSecond = second;
    }
    return text;
}

// Keys of the selected list: "m", the position and the time of day, so that a
// position used again after a removal gets a key of its own.
QString selectedItemKey(int16_t position)
{
    return QStringLiteral("m") + QString::number(position) + timeOfDayText();
}

// The stored album as far as it could be read: each picture with its slot, in
// slot order, holes left out. `complete` is false when any read of it failed.
struct StoredAlbum {
    int32_t items = 0;
    QList<std::pair<int32_t, QString>> pictures;
    bool complete = true;
};

StoredAlbum readStoredAlbum()
{
    const platform::Registry& store = platform::Registry::instance();
    const uint64_t failuresBefore = store.failedReads();
    StoredAlbum album;
    // One snapshot of the store for the count and all the slots.
    const platform::Registry::ReadTogether together;
    resumeNext([&] { album.items = platform::toInt32(AlbumStore::count()); });
    // Slots above the highest one stored read as blank: the loop stops there.
    const int32_t lastSlot = album.items == 0 ? 0 : std::min(album.items, AlbumStore::highestSlot());
    for (int32_t slot = 1; slot <= lastSlot && album.pictures.size() < frmMain::MaxListItems; ++slot) {
        const QString path = AlbumStore::slot(slot);
        if (!path.isEmpty())
            album.pictures.append({slot, path});
    }
    album.complete = store.failedReads() == failuresBefore;
    return album;
}

} // namespace

void frmMain::appendToAlbumList(const QString& path, int32_t slot)
{
    resumeNext([&] {
        LSTSELECTED->ListItems()
            .Add(NEXTINDEX, selectedItemKey(NEXTINDEX), path, QStringLiteral("FILE"))
            .setTag(slot);
    });
    resumeNext([&] { NEXTINDEX = platform::toInt16(NEXTINDEX + 1.0); });
}

void frmMain::appendStoredToAlbumList(const QList<std::pair<int32_t, QString>>& pictures)
{
    // One insertion needs the positions to follow the list's end and stay within
    // what an album holds; otherwise the pictures go in one by one.
    const int32_t count = LSTSELECTED->ListItems().Count();
    if (NEXTINDEX != count + 1 || count + pictures.size() > MaxListItems) {
        for (const auto& [slot, path] : pictures)
            appendToAlbumList(path, slot);
        return;
    }
    QList<platform::ListView::NewItem> items;
    items.reserve(pictures.size());
    for (const auto& [slot, path] : pictures) {
        items.append({selectedItemKey(NEXTINDEX), path, QStringLiteral("FILE"), slot});
        // NEXTINDEX is 16-bit: it stops at the last position, as one by one.
        if (NEXTINDEX < MaxListItems)
            ++NEXTINDEX;
    }
    resumeNext([&] { LSTSELECTED->ListItems().AddAll(items); });
}

void frmMain::storeInAlbum(int32_t slot, const QString& path)
{
    // The count first, then the picture: a crash between the two leaves a blank
    // last slot, which reads as a hole.
    resumeNext([&] { AlbumStore::setCount(slot); });
    resumeNext([&] { AlbumStore::setSlot(slot, path); });
}

bool frmMain::albumReadable()
{
    if (!albumUnread)
        return true;
    const StoredAlbum stored = readStoredAlbum();
    if (!stored.complete)
        return false;
    QStringList addedMeanwhile;
    for (int32_t i = 1; i <= LSTSELECTED->ListItems().Count(); ++i)
        if (LSTSELECTED->ListItems()(i).Tag() == 0)
            addedMeanwhile << LSTSELECTED->ListItems()(i).Text();
    LSTSELECTED->ListItems().Clear();
    NEXTINDEX = 1;
    albumUnread = false;
    appendStoredToAlbumList(stored.pictures);
    for (const QString& path : addedMeanwhile) {
        if (LSTSELECTED->ListItems().Count() >= MaxListItems)
            break;
        const int32_t slot = nextFreeSlot();
        appendToAlbumList(path, slot);
        storeInAlbum(slot, path);
    }
    commands_.setEnabled(QStringLiteral("RUN"), LSTSELECTED->ListItems().Count() >= 1);
    SELECTCHK();
    COUNTSHOW();
    return true;
}

int32_t frmMain::nextFreeSlot() const
{
    const int32_t count = LSTSELECTED->ListItems().Count();
    return count == 0 ? 1 : static_cast<int32_t>(LSTSELECTED->ListItems()(count).Tag()) + 1;
}

void frmMain::ADDFILE(int16_t Index)
{
    // The album is full: its positions are 16-bit.
    if (LSTSELECTED->ListItems().Count() >= MaxListItems)
        return;
    // A name that can't be read must not leave the previous picture's type behind.
    ADDEXT.clear();
    resumeNext([&] {
        const QString name = FLBFOUND.List(Index);
        ADDPATH = FLBFOUND.Path() == QLatin1String("/") ? FLBFOUND.Path() + name
                                                        : FLBFOUND.Path() + QLatin1Char('/') + name;
    });
    resumeNext([&] {
        ADDEXT = FLBFOUND.List(Index);
        NAMELEN = static_cast<int16_t>(ADDEXT.size());
        DOTPOS = static_cast<int16_t>(ADDEXT.lastIndexOf(QLatin1Char('.')) + 1);
    });
    resumeNext([&] { ADDEXT = ADDEXT.right(NAMELEN - DOTPOS).toUpper(); });
    if (ADDEXT != QLatin1String("BMP") && ADDEXT != QLatin1String("JPG") && ADDEXT != QLatin1String("GIF"))
        return;

    // An album that couldn't be read gets the picture in the window only.
    const int32_t slot = albumUnread ? 0 : nextFreeSlot();
    appendToAlbumList(ADDPATH, slot);
    if (slot != 0)
        storeInAlbum(slot, ADDPATH);
    if (LSTSELECTED->ListItems().Count() >= 1)
        commands_.setEnabled(QStringLiteral("RUN"), true);
    COUNTSHOW();
}

void frmMain::ADD()
{
    albumReadable();
    const int16_t count = static_cast<int16_t>(std::min(LVWFOUND->ListItems().Count(), MaxListItems));
    for (int16_t i = 1; i <= count; ++i) {
        bool marked = false;
        resumeNext([&] { marked = LVWFOUND->ListItems()(i).Selected(); });
        if (marked)
            ADDFILE(static_cast<int16_t>(i - 1));
    }
}

void frmMain::ADDALL()
{
    albumReadable();
    const int16_t count = FLBFOUND.ListCount();
    for (int16_t i = 0; i < count; ++i)
        ADDFILE(i);
}

void frmMain::CLEAR()
{
    const platform::ListView::ListItem current = LSTSELECTED->SelectedItem();
    // Nothing to remove without a current item.
    if (current.isNull())
        return;
    const int32_t index = current.Index();
    // A picture that was never stored (Tag 0) has no slot to blank.
    if (current.Tag() != 0)
        resumeNext([&] { AlbumStore::setSlot(static_cast<int32_t>(current.Tag()), QString()); });
    resumeNext([&] { LSTSELECTED->ListItems().Remove(index); });
    COUNTSHOW();
    resumeNext([&] { NEXTINDEX = platform::toInt16(LSTSELECTED->ListItems().Count() + 1.0); });
    if (LSTSELECTED->ListItems().Count() == 0)
        commands_.setEnabled(QStringLiteral("RUN"), false);
}

void frmMain::CLEARALL()
{
    const platform::Registry& store = platform::Registry::instance();
    // An album that can't be read is cleared in the window only: the store keeps it.
    const bool readable = albumReadable();
    const uint64_t failuresBefore = store.failedReads();
    int32_t lastSlot = 0;
    if (readable) {
        resumeNext([&] { STOREDITEMS = platform::toInt32(AlbumStore::count()); });
        // Every slot from 1 to the count is blanked, also those never written. A
        // count beyond what an album can hold was edited by hand: a write for every
        // number up to it could take hours, so then only the slots that exist are.
        lastSlot =
            STOREDITEMS <= MaxListItems ? STOREDITEMS : std::min(STOREDITEMS, AlbumStore::highestSlot());
    }
    LSTSELECTED->ListItems().Clear();
    commands_.setEnabled(QStringLiteral("RUN"), false);
    commands_.setEnabled(QStringLiteral("REMOVE ALL"), false);
    commands_.setEnabled(QStringLiteral("REMOVE"), false);
    COUNTSHOW();
    NEXTINDEX = 1;
    // Without the count and the slots in use, "Items" = 0 could hide pictures.
    if (!readable || store.failedReads() != failuresBefore) {
        albumUnread = true;
        return;
    }
    for (SLOTNO = 0; SLOTNO < lastSlot;) {
        ++SLOTNO;
        resumeNext([&] { AlbumStore::setSlot(SLOTNO, QString()); });
    }
    resumeNext([&] { AlbumStore::setCount(0); });
}

// Lists the stored album without its holes. The store isn't rewritten, and the
// files behind the paths aren't looked at.
void frmMain::loadAlbum()
{
    const StoredAlbum stored = readStoredAlbum();
    albumUnread = !stored.complete;
    STOREDITEMS = stored.items;
    NEXTINDEX = 1;
    appendStoredToAlbumList(stored.pictures);
    commands_.setEnabled(QStringLiteral("RUN"), !stored.pictures.isEmpty());
    if (stored.pictures.isEmpty()) {
        SELECTCHK();
        setMousePointer(0);
        platform::Screen::setMousePointer(0);
    }
    COUNTSHOW();
}

void frmMain::FOUNDLSTCHK()
{
    const bool any = FLBFOUND.ListCount() != 0;
    commands_.setEnabled(QStringLiteral("ADD"), any);
    commands_.setEnabled(QStringLiteral("ADD ALL"), any);
}

void frmMain::SELECTCHK()
{
    const bool any = LSTSELECTED->ListItems().Count() >= 1;
    commands_.setEnabled(QStringLiteral("REMOVE ALL"), any);
    commands_.setEnabled(QStringLiteral("REMOVE"), any);
}

void frmMain::COUNTSHOW()
{
    SBMAIN->setPanelText(2, QString::number(FLBFOUND.ListCount()) + QStringLiteral(" pictures found"));
    SBMAIN->setPanelText(3, QString::number(LSTSELECTED->ListItems().Count()) +
                                QStringLiteral(" pictures selected"));
}
