// The properties dialog as the album opens it: the General and Picture tabs for
// real files, a path given in another spelling, a file that is gone, the place of
// the dialog kept for the next opening, and the size text at its table's bounds.
// The expected texts are written for US English numbers and dates in UTC, which
// main() sets before the application reads the locale.
#include "TempStore.h"

#include "library/clsLibrary.h"
#include "picinfo/frmProps.h"
#include "platform/core/FileNames.h"
#include "platform/widgets/MsgBox.h"

#include <QApplication>
#include <QBuffer>
#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// What the dialog shows, taken while it is open.
struct Shown {
    QString name, type, location, size, modified;
    QList<bool> attributes; // read-only, hidden, archive
    bool icon = false;
    QStringList tabs;
    QStringList picture; // type, width, height, depth
    QPoint place;
    QFont nameFont;
};

// Opens the dialog as the album's Properties command does and closes it again,
// with `whileOpen` run on the open dialog first.
Shown openProperties(const QString& path, const std::function<void(frmProps&)>& whileOpen = {})
{
    Shown shown;
    QTimer::singleShot(0, [&] {
        frmProps& props = Forms::get<frmProps>();
        shown = {
            props.TXTFILENAME->text(),
            props.TXTTYPE->text(),
            props.TXTLOCATION->text(),
            props.TXTSIZE->text(),
            props.TXTMODIFIED->text(),
            {props.CHKATTR[0]->isChecked(), props.CHKATTR[1]->isChecked(), props.CHKATTR[2]->isChecked()},
            !props.PICICON->pixmap().isNull() &&
                props.PICICON->pixmap().deviceIndependentSize().toSize() == QSize(32, 32),
            {},
            {props.TXTPICTYPE->text(), props.TXTPICWIDTH->text(), props.TXTPICHEIGHT->text(),
             props.TXTPICPIXELDEPTH->text()},
            props.pos(),
            props.TXTFILENAME->font()};
        for (int i = 0; i < props.TABPROPS->count(); ++i)
            shown.tabs << props.TABPROPS->tabText(i);
        if (whileOpen)
            whileOpen(props);
        props.BTNCLOSE->click();
        // Never leave the modal loop waiting on a person.
        Forms::unload<frmProps>();
    });
    clsLibrary::instance().GETPROPERTIES(frmProps::load, path, nullptr, QStringLiteral("PICTURE"));
    return shown;
}

QByteArray picture(const char* format)
{
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return buffer.data();
}

// Files are written through the bytes of their names, as the program reads them.
void writeFile(const QString& path, const QByteArray& bytes)
{
    const int fd = ::open(platform::encodeFileName(path).constData(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    QVERIFY(fd >= 0);
    QCOMPARE(::write(fd, bytes.constData(), static_cast<size_t>(bytes.size())), ssize_t(bytes.size()));
    ::close(fd);
}

const QStringList NoPicture = {QStringLiteral("0"), QStringLiteral("0"), QStringLiteral("0"),
                               QStringLiteral("0")};

} // namespace

class tst_frmProps : public QObject {
    Q_OBJECT

private slots:
    void fieldsOfAFile_data();
    void fieldsOfAFile();
    void fileThatIsGone();
    void placeIsKeptForTheNextFile();
    void FORMATSIZE_data();
    void FORMATSIZE();
    void PROPERCASEPATH_data();
    void PROPERCASEPATH();
};

void tst_frmProps::fieldsOfAFile_data()
{
    QTest::addColumn<QString>("stored"); // the file as written, under the temporary folder
    QTest::addColumn<QString>("given");  // the path the dialog is opened for
    QTest::addColumn<QString>("content");
    QTest::addColumn<bool>("readOnly");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QList<bool>>("attributes");
    QTest::addColumn<QStringList>("picture");

    const QStringList photo = {QStringLiteral("PNG"), QStringLiteral("40 pixels"),
                               QStringLiteral("30 pixels"), QStringLiteral("16 million colors (24 bit)")};
    QStringList jpeg = photo;
    jpeg[0] = QStringLiteral("JPEG");
    const QList<bool> none = {false, false, false};

    const auto row = [](const char* name, const QString& stored, const QString& given, const char* content,
                        bool readOnly, const char* type, const QList<bool>& attributes,
                        const QStringList& picture) {
        QTest::newRow(name) << stored << given << QString(content) << readOnly << QString(type) << attributes
                            << picture;
    };
    row("JPEG given in another spelling", "Holiday/Beach.JPG", "HOLIDAY/beach.jpg", "JPEG", false,
        "Jpeg Image", none, jpeg);
    row("dot name is hidden", ".cover.png", ".cover.png", "PNG", false, "Png Image", {false, true, false},
        photo);
    row("not writable is read-only", "Locked.png", "Locked.png", "PNG", true, "Png Image",
        {true, false, false}, photo);
    // The byte 0xE9 alone, in the program's text form of such names.
    row("name that isn't UTF-8", QString::fromUtf8("Caf\uF7E9.png"), QString::fromUtf8("CAF\uF7E9.PNG"),
        "PNG", false, "Png Image", none, photo);
    // A type that neither the MIME database nor the header reader knows.
    row("unknown type named by its extension", "abc.xyz", "abc.xyz", "bytes", false, "Xyz File", none,
        NoPicture);
}

void tst_frmProps::fieldsOfAFile()
{
    QFETCH(QString, stored);
    QFETCH(QString, given);
    QFETCH(QString, content);
    QFETCH(bool, readOnly);
    if (readOnly && ::geteuid() == 0)
        QSKIP("The superuser may write any file.");

    TempStore temp;
    QTemporaryDir dir;
    const QString path = dir.filePath(stored);
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    const QByteArray bytes = content == QLatin1String("bytes") ? QByteArray("\x01\x02\x03\xfe", 4)
                                                               : picture(content.toLatin1().constData());
    writeFile(path, bytes);
    const QByteArray name = platform::encodeFileName(path);
    // The temporary folder can't remove a name that isn't UTF-8.
    const auto removeFile = qScopeGuard([&] { ::unlink(name.constData()); });
    const timespec times[2] = {
        {0, UTIME_OMIT},
        {QDateTime(QDate(2021, 3, 4), QTime(5, 6, 7), Qt::UTC).toSecsSinceEpoch(), 890000000}};
    QCOMPARE(::utimensat(AT_FDCWD, name.constData(), times, 0), 0);
    if (readOnly)
        QCOMPARE(::chmod(name.constData(), 0444), 0);

    const Shown shown = openProperties(dir.filePath(given));
    QCOMPARE(shown.name, stored.section(QLatin1Char('/'), -1));
    QCOMPARE(shown.nameFont.family(), QStringLiteral("Tahoma"));
    QCOMPARE(shown.nameFont.pointSizeF(), 9.75);
    QVERIFY(shown.nameFont.bold());
    QTEST(shown.type, "type");
    QCOMPARE(shown.location, QDir::cleanPath(dir.filePath(stored.section(QLatin1Char('/'), 0, -2))));
    QCOMPARE(shown.size, frmProps::FORMATSIZE(bytes.size()));
    // The long date and the long time, which names no zone.
    QCOMPARE(shown.modified, QStringLiteral("Thursday, March 4, 2021 5:06:07 AM"));
    QTEST(shown.attributes, "attributes");
    QVERIFY(shown.icon);
    QCOMPARE(shown.tabs, (QStringList{QStringLiteral("General"), QStringLiteral("Picture")}));
    QTEST(shown.picture, "picture");
}

// An album entry whose file was deleted since: the dialog still opens, the boxes
// behind the empty folder keep their first text, and the header reader says once
// that it can't open the file.
void tst_frmProps::fileThatIsGone()
{
    TempStore temp;
    QTemporaryDir dir;
    const int asked = platform::MsgBox::askedCount();
    platform::MsgBox::setNextAnswer(QMessageBox::Ok);

    const Shown shown = openProperties(dir.filePath(QStringLiteral("gone.jpg")));
    QCOMPARE(platform::MsgBox::askedCount(), asked + 1);
    QCOMPARE(platform::MsgBox::lastText(), QStringLiteral(" Error occurs : File not found"));
    QCOMPARE(shown.name, QString());
    QCOMPARE(shown.location, QStringLiteral("txtLocation"));
    QCOMPARE(shown.size, QStringLiteral("txtSize"));
    QVERIFY(!shown.icon);
    QCOMPARE(shown.picture, NoPicture);
}

void tst_frmProps::placeIsKeptForTheNextFile()
{
    TempStore temp;
    QTemporaryDir dir;
    const QString first = dir.filePath(QStringLiteral("first.png"));
    const QString second = dir.filePath(QStringLiteral("second.png"));
    writeFile(first, picture("PNG"));
    writeFile(second, picture("PNG"));

    const QPoint moved(120, 90);
    openProperties(first, [&](frmProps& props) { props.move(moved); });
    QCOMPARE(openProperties(second).place, moved);
}

void tst_frmProps::FORMATSIZE_data()
{
    QTest::addColumn<qint64>("size");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << qint64(0) << "0 Bytes";
    QTest::newRow("largest in bytes") << qint64(1023) << "1,023 Bytes";
    QTest::newRow("1 KB") << qint64(1024) << "1.00KB (1,024 Bytes)";
    // The decimals follow the whole kilobytes, before rounding.
    QTest::newRow("just under 10 KB") << qint64(10239) << "10.00KB (10,239 Bytes)";
    QTest::newRow("10 KB") << qint64(10240) << "10.0KB (10,240 Bytes)";
    QTest::newRow("just under 100 KB") << qint64(102399) << "100.0KB (102,399 Bytes)";
    QTest::newRow("100 KB") << qint64(102400) << "100KB (102,400 Bytes)";
    QTest::newRow("half a KB rounds up") << qint64(102912) << "101KB (102,912 Bytes)";
    QTest::newRow("just under 1000 KB") << qint64(1023999) << "1000KB (1,023,999 Bytes)";
    QTest::newRow("1000 KB in MB") << qint64(1024000) << "0.98MB (1,024,000 Bytes)";
    QTest::newRow("just under 1000000 KB") << qint64(1023999999) << "977MB (1,023,999,999 Bytes)";
    QTest::newRow("1000000 KB in GB") << qint64(1024000000) << "0.95GB (1,024,000,000 Bytes)";
    QTest::newRow("beyond 32 bits") << qint64(5368709120) << "5.00GB (5,368,709,120 Bytes)";
}

void tst_frmProps::FORMATSIZE()
{
    QFETCH(qint64, size);
    QTEST(frmProps::FORMATSIZE(size), "text");
}

void tst_frmProps::PROPERCASEPATH_data()
{
    // Paths under the temporary folder, which is given as it is spelt or in upper
    // case; "" for no result.
    QTest::addColumn<bool>("upperFolder");
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("result");
    const auto row = [](const char* name, bool upperFolder, const char* given, const char* result) {
        QTest::newRow(name) << upperFolder << QString(given) << QString(result);
    };
    row("as spelt", false, "Photos/Summer", "Photos/Summer");
    row("every folder from the root", true, "photos/summer", "Photos/Summer");
    row("final separator", false, "photos/SUMMER/", "Photos/Summer");
    row("a file is no folder", false, "Photos/notes.txt", "");
    row("missing folder", false, "Photos/Winter", "");
    // "tmp" exists at the root, but not below a folder that isn't there.
    row("missing parent", false, "Nowhere/tmp", "");
    // Two folders that differ in case only: the exact one, else the first by bytes.
    row("exact of two", false, "Case", "Case");
    row("neither of two", false, "case", "CASE");
}

void tst_frmProps::PROPERCASEPATH()
{
    QFETCH(bool, upperFolder);
    QFETCH(QString, given);
    QFETCH(QString, result);
    QTemporaryDir dir;
    const QDir root(dir.path());
    QVERIFY(root.mkpath(QStringLiteral("Photos/Summer")));
    QVERIFY(root.mkpath(QStringLiteral("Case")));
    QVERIFY(root.mkpath(QStringLiteral("CASE")));
    writeFile(dir.filePath(QStringLiteral("Photos/notes.txt")), "notes");

    const QString folder = upperFolder ? dir.path().toUpper() : dir.path();
    QCOMPARE(frmProps::PROPERCASEPATH(folder + QLatin1Char('/') + given),
             result.isEmpty() ? result : dir.filePath(result));
    QCOMPARE(frmProps::PROPERCASEPATH(QStringLiteral("/")), QStringLiteral("/"));
}

int main(int argc, char** argv)
{
    qputenv("LC_ALL", "en_US.UTF-8");
    qputenv("TZ", "UTC");
    QApplication app(argc, argv);
    tst_frmProps test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_frmProps.moc"
