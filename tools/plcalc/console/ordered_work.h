#pragma once

// Work in several threads, with results in the order of the tasks.

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace tool {

/// Does tasks in threads of its own, and hands them back in the order in which they came. With one job there is no thread:
/// a task is done when it is taken. Only the thread that made it may call its functions.
template <class Task> class OrderedWork {
public:
    /// @param[in] jobs  how many tasks are done at the same time
    /// @param[in] work  does one; called from several threads at the same time
    OrderedWork(std::size_t jobs, std::function<void(Task&)> work) : work_(std::move(work))
    {
        for (std::size_t i = 0; jobs > 1 && i < jobs; ++i)
            threads_.emplace_back([this] { run(); });
    }

    /// Tasks that nobody took are given up.
    ~OrderedWork()
    {
        {
            const std::lock_guard<std::mutex> lock(mutex_);
            stopped_ = true;
        }
        changed_.notify_all();
        for (std::thread& thread : threads_)
            thread.join();
    }

    OrderedWork(const OrderedWork&) = delete;
    OrderedWork& operator=(const OrderedWork&) = delete;

    /// How many tasks have not been taken.
    std::size_t pending() const { return tasks_.size(); }

    void put(std::unique_ptr<Task> task)
    {
        tasks_.push_back(std::make_shared<Slot>());
        tasks_.back()->task = std::move(task);
        {
            const std::lock_guard<std::mutex> lock(mutex_);
            waiting_.push_back(tasks_.back());
        }
        changed_.notify_all();
    }

    /// The oldest task, when it is done. There must be one.
    ///
    /// @throws what the work threw
    std::unique_ptr<Task> take()
    {
        const std::shared_ptr<Slot> slot = tasks_.front();
        tasks_.pop_front();
        if (threads_.empty()) {
            waiting_.pop_front();
            work_(*slot->task);
            return std::move(slot->task);
        }
        std::unique_lock<std::mutex> lock(mutex_);
        changed_.wait(lock, [&] { return slot->done; });
        if (slot->failure != nullptr)
            std::rethrow_exception(slot->failure);
        return std::move(slot->task);
    }

private:
    struct Slot {
        std::unique_ptr<Task> task;
        std::exception_ptr failure;
        bool done = false;
    };

    void run()
    {
        std::unique_lock<std::mutex> lock(mutex_);
        for (;;) {
            changed_.wait(lock, [&] { return stopped_ || !waiting_.empty(); });
            if (stopped_)
                return;
            const std::shared_ptr<Slot> slot = waiting_.front();
            waiting_.pop_front();
            lock.unlock();
            std::exception_ptr failure;
            try {
                work_(*slot->task);
            } catch (...) {
                failure = std::current_exception();
            }
            lock.lock();
            slot->failure = failure;
            slot->done = true;
            changed_.notify_all();
        }
    }

    std::function<void(Task&)> work_;
    std::deque<std::shared_ptr<Slot>> tasks_;  // of the thread that made this
    std::deque<std::shared_ptr<Slot>> waiting_;
    std::mutex mutex_;
    std::condition_variable changed_;
    bool stopped_ = false;
    std::vector<std::thread> threads_;
};

}  // namespace tool
