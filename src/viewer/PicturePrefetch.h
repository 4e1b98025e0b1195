#pragma once

#include "platform/core/Picture.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

// The show's pictures decoded ahead of their step on a worker thread: while one
// picture is on the screen, the next one and the one before it are decoded, so
// that a step only has to put its picture up. A picture decoded ahead is used for
// the same path only, and only while its file is unchanged (the same file, of the
// same size and times); otherwise the step loads the file itself, as it always did.
// Every call is made on the thread that owns the show.
class PicturePrefetch {
public:
    // Picks the part of a picture of a natural size to keep. Called on the worker:
    // it must hold its own copies of whatever it needs.
    using Keep = std::function<QRect(QSize)>;

    PicturePrefetch();
    // Drops what is still waiting; a decode under way ends on its own, unused.
    ~PicturePrefetch();
    PicturePrefetch(const PicturePrefetch&) = delete;
    PicturePrefetch& operator=(const PicturePrefetch&) = delete;

    // The picture behind `path`, as much of it as `keep` asks for: the one decoded
    // ahead when it still matches the file, else loaded here and now. A decode of
    // that very path that is under way is waited for rather than repeated. Throws
    // as platform::LoadPicturePart does.
    platform::PicturePart load(const QString& path, const Keep& keep);

    // Holds on to the picture of `shown` and to those of `ahead`, lets every other
    // go, and has the ones of `ahead` not held yet decoded, in that order, from the
    // next call of startDecoding on.
    void keepAround(const QString& shown, const QStringList& ahead, const Keep& keep);

    // Hands the decodes that keepAround asked for to the worker. The show calls it
    // once its picture is painted, so that the worker never holds up a step. When
    // the worker can't be had, the steps load their pictures themselves.
    void startDecoding() noexcept;

    // How many loads were served by a picture decoded ahead, over all shows.
    static int hits();
    // Waits until the worker has nothing left to do, for tests and benchmarks.
    static void waitForWorker();

private:
    struct Job;
    std::shared_ptr<Job> find(const QString& path) const;
    void drop(const std::shared_ptr<Job>& job);

    std::vector<std::shared_ptr<Job>> jobs_;
};
