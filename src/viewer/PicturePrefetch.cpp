#include "viewer/PicturePrefetch.h"

#include <QCoreApplication>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

namespace {

// One worker thread for all shows: pictures are decoded one after the other, so
// the decodes never compete with each other, and the second core stays with the
// user interface. It lives until the application ends, so that a decode still
// under way when a show is left can end on its own; the application waits for it
// as it goes down. Its queue is guarded by a standard mutex, which a thread
// sanitizer can follow.
class Worker {
public:
    Worker() : thread_([this] { work(); }) {}
    ~Worker()
    {
        {
            std::lock_guard lock(mutex_);
            stopping_ = true;
        }
        wake_.notify_one();
        thread_.join();
    }

    void start(std::function<void()> task)
    {
        {
            std::lock_guard lock(mutex_);
            tasks_.push_back(std::move(task));
        }
        wake_.notify_one();
    }

    void waitForDone()
    {
        std::unique_lock lock(mutex_);
        idle_.wait(lock, [this] { return tasks_.empty() && !busy_; });
    }

private:
    void work()
    {
        std::unique_lock lock(mutex_);
        for (;;) {
            wake_.wait(lock, [this] { return stopping_ || !tasks_.empty(); });
            if (tasks_.empty())
                return;
            std::function<void()> task = std::move(tasks_.front());
            tasks_.pop_front();
            busy_ = true;
            lock.unlock();
            task();
            task = nullptr;
            lock.lock();
            busy_ = false;
            idle_.notify_all();
        }
    }

    std::mutex mutex_;
    std::condition_variable wake_;
    std::condition_variable idle_;
    std::deque<std::function<void()>> tasks_;
    bool busy_ = false;
    bool stopping_ = false;
    std::thread thread_; // last: it starts working as it is made
};

Worker* worker = nullptr;

void stopWorker()
{
    delete worker;
    worker = nullptr;
}

Worker& theWorker()
{
    if (!worker) {
        worker = new Worker;
        qAddPostRoutine(stopWorker);
    }
    return *worker;
}

std::atomic<int> hitCount{0};

} // namespace

// One picture held or on its way. The worker and the show share it; its state
// and result are guarded by its mutex.
struct PicturePrefetch::Job {
    enum State { Waiting, Decoding, Done, Dropped };

    Job(const QString& path, const Keep& keep) : path(path), keep(keep) {}

    const QString path;
    const Keep keep;
    std::mutex mutex;
    std::condition_variable finished;
    State state = Waiting;
    std::optional<platform::PicturePart> picture; // when Done and decoded
    bool handedOver = false;                      // to the worker; the show's thread only

    // On the worker. A picture that can't be decoded leaves nothing: its step
    // loads it again and meets the failure itself.
    void run()
    {
        {
            std::lock_guard lock(mutex);
            if (state != Waiting)
                return;
            state = Decoding;
        }
        std::optional<platform::PicturePart> decoded;
        try {
            decoded = platform::LoadPicturePart(path, keep);
        } catch (...) {
        }
        {
            std::lock_guard lock(mutex);
            picture = std::move(decoded);
            state = Done;
        }
        finished.notify_all();
    }
};

PicturePrefetch::PicturePrefetch() = default;

PicturePrefetch::~PicturePrefetch()
{
    for (const std::shared_ptr<Job>& job : jobs_)
        drop(job);
}

std::shared_ptr<PicturePrefetch::Job> PicturePrefetch::find(const QString& path) const
{
    const auto found = std::find_if(jobs_.begin(), jobs_.end(),
                                    [&](const std::shared_ptr<Job>& job) { return job->path == path; });
    return found == jobs_.end() ? nullptr : *found;
}

// A job that hasn't started never will; one under way ends unused.
void PicturePrefetch::drop(const std::shared_ptr<Job>& job)
{
    std::lock_guard lock(job->mutex);
    if (job->state == Job::Waiting)
        job->state = Job::Dropped;
}

platform::PicturePart PicturePrefetch::load(const QString& path, const Keep& keep)
{
    if (const std::shared_ptr<Job> job = find(path)) {
        std::unique_lock lock(job->mutex);
        // Still waiting for the worker: decoding it here is as quick.
        if (job->state == Job::Waiting)
            job->state = Job::Dropped;
        job->finished.wait(lock, [&] { return job->state == Job::Done || job->state == Job::Dropped; });
        // The file must be the one decoded, and what was kept must cover what is
        // wanted now.
        if (job->state == Job::Done && job->picture && platform::fileStampOf(path) == job->picture->stamp &&
            job->picture->part.contains(keep(job->picture->size) & QRect(QPoint(), job->picture->size))) {
            ++hitCount;
            return *job->picture;
        }
        lock.unlock();
        jobs_.erase(std::find(jobs_.begin(), jobs_.end(), job));
    }
    auto job = std::make_shared<Job>(path, keep);
    platform::PicturePart picture = platform::LoadPicturePart(path, keep);
    job->picture = picture;
    job->state = Job::Done;
    job->handedOver = true;
    jobs_.push_back(std::move(job));
    return picture;
}

void PicturePrefetch::keepAround(const QString& shown, const QStringList& ahead, const Keep& keep)
{
    const auto wanted = [&](const QString& path) { return path == shown || ahead.contains(path); };
    for (auto job = jobs_.begin(); job != jobs_.end();) {
        if (wanted((*job)->path)) {
            ++job;
        } else {
            drop(*job);
            job = jobs_.erase(job);
        }
    }
    for (const QString& path : ahead) {
        if (path.isEmpty() || find(path))
            continue;
        jobs_.push_back(std::make_shared<Job>(path, keep));
    }
}

// Without a worker (its thread can't be started when the process is short of
// memory or threads) the jobs stay waiting, and each step decodes its own picture;
// the worker is tried again at the next step.
void PicturePrefetch::startDecoding() noexcept
{
    try {
        for (const std::shared_ptr<Job>& job : jobs_) {
            if (job->handedOver)
                continue;
            theWorker().start([job] { job->run(); });
            job->handedOver = true;
        }
    } catch (...) {
    }
}

int PicturePrefetch::hits()
{
    return hitCount;
}

void PicturePrefetch::waitForWorker()
{
    if (worker)
        worker->waitForDone();
}
