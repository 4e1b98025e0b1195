// The header reader on arbitrary bytes, by each way the program reaches it: the
// reading of bytes in memory, the reading of a file, and GETIMAGEFILEINFO, which
// fills the shared image record and reports a failure in a message box. All three
// must agree, and what they give must be a header that can be.
#include "MemoryFile.h"

#include "library/clsLibrary.h"
#include "platform/core/Error.h"
#include "platform/core/ImageHeader.h"
#include "platform/widgets/MsgBox.h"

namespace {

MemoryFile* file = nullptr;
// Answers queued for the message box and not yet taken.
int queuedAnswers = 0;

void checkPossible(const platform::HeaderReading& reading)
{
    const platform::ImageHeader& h = reading.header;
    FUZZ_CHECK(h.type >= platform::UnknownImage && h.type <= platform::BmpImage, "type %d", h.type);
    // Sizes are two bytes below 0x8000; a depth is at most one byte times 8.
    FUZZ_CHECK(h.width >= 0 && h.width <= 32767 && h.height >= 0 && h.height <= 32767, "size %d x %d",
               h.width, h.height);
    FUZZ_CHECK(h.depth >= 0 && h.depth <= 255 * 8, "depth %d", h.depth);
    if (reading.failure) {
        // Bytes in memory fail only on a value too big for 16 bits.
        FUZZ_CHECK(reading.failure->number == platform::err::Overflow, "failure %d", reading.failure->number);
    } else if (h.type == platform::UnknownImage) {
        FUZZ_CHECK(h.width == 0 && h.height == 0 && h.depth == 0, "an unknown type with a size");
    }
}

bool same(const platform::HeaderReading& a, const platform::HeaderReading& b)
{
    return a.header.type == b.header.type && a.header.width == b.header.width &&
           a.header.height == b.header.height && a.header.depth == b.header.depth &&
           bool(a.failure) == bool(b.failure) &&
           (!a.failure || (a.failure->number == b.failure->number && a.failure->text == b.failure->text));
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    file = startFileTarget(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const platform::HeaderReading inMemory =
        platform::readImageHeader(QByteArrayView(reinterpret_cast<const char*>(data), qsizetype(size)));
    checkPossible(inMemory);

    file->fill(data, size);
    const platform::HeaderReading fromFile = platform::readImageFile(file->path());
    FUZZ_CHECK(same(inMemory, fromFile), "the file reads otherwise than its bytes");

    if (queuedAnswers == 0) {
        platform::MsgBox::setNextAnswer(QMessageBox::Ok);
        queuedAnswers = 1;
    }
    clsLibrary& library = clsLibrary::instance();
    const int askedBefore = platform::MsgBox::askedCount();
    library.IMAGEFILE = file->path();
    library.GETIMAGEFILEINFO();
    const bool asked = platform::MsgBox::askedCount() != askedBefore;
    queuedAnswers -= asked ? 1 : 0;
    FUZZ_CHECK(asked == bool(fromFile.failure), "a message box %s", asked ? "without a failure" : "missing");
    if (asked)
        FUZZ_CHECK(platform::MsgBox::lastText() ==
                       QStringLiteral(" Error occurs : ") + fromFile.failure->text,
                   "message %s", qPrintable(platform::MsgBox::lastText()));
    FUZZ_CHECK(library.IMAGETYPE == fromFile.header.type && library.IMAGEWIDTH == fromFile.header.width &&
                   library.IMAGEHEIGHT == fromFile.header.height &&
                   library.IMAGEDEPTH == fromFile.header.depth,
               "the image record differs from the reading");
    return 0;
}
