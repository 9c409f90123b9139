#include "base/Parallel.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <limits>
#include <mutex>
#include <new>
#include <system_error>
#include <thread>
#include <vector>

namespace rasterplan_tool {
namespace {

constexpr std::size_t leastPerThread = 16; // fewer take no longer than starting a thread

// The parts of a work, which threads take one after the other.
class Parts {
public:
    Parts(std::size_t count, const std::function<void(std::size_t)>& work)
        : m_count(count)
        , m_work(work) {}

    // Does the next part, if there is one.
    bool doNext() noexcept {
        const std::size_t part = m_next.fetch_add(1);
        if (part >= m_count || part > m_firstFailed.load())
            return false;
        try {
            m_work(part);
        } catch (...) {
            note(part, std::current_exception());
        }
        ++m_done;
        return true;
    }

    std::size_t done() const noexcept { return m_done.load(); }

    void throwIfFailed() const {
        if (m_failure)
            std::rethrow_exception(m_failure);
    }

private:
    void note(std::size_t part, std::exception_ptr failure) noexcept {
        const std::lock_guard lock(m_mutex);
        if (part < m_firstFailed.load()) {
            m_firstFailed.store(part);
            m_failure = std::move(failure);
        }
    }

    const std::size_t m_count;
    const std::function<void(std::size_t)>& m_work;
    std::atomic<std::size_t> m_next = 0;
    std::atomic<std::size_t> m_done = 0;
    std::atomic<std::size_t> m_firstFailed = std::numeric_limits<std::size_t>::max();
    std::mutex m_mutex;
    std::exception_ptr m_failure;
};

// Threads beside the caller's that work at the parts until there are none.
class Helpers {
public:
    Helpers(Parts& parts, std::size_t count) {
        m_threads.reserve(count);
        try {
            for (std::size_t i = 0; i < count; ++i) {
                m_threads.emplace_back([&parts] {
                    while (parts.doNext()) {
                    }
                });
            }
        } catch (const std::system_error&) {
            // those that run do the work, or the caller alone
        } catch (const std::bad_alloc&) {
            join();
            throw;
        }
    }
    ~Helpers() { join(); }
    Helpers(const Helpers&) = delete;
    Helpers& operator=(const Helpers&) = delete;

private:
    void join() noexcept {
        for (std::thread& thread : m_threads)
            thread.join();
    }

    std::vector<std::thread> m_threads;
};

} // namespace

void inParallel(std::size_t count, const std::function<void(std::size_t)>& work,
                const std::function<void(std::size_t)>& tell) {
    const std::size_t cores = std::max<std::size_t>(std::thread::hardware_concurrency(), 1);
    Parts parts(count, work);
    {
        const Helpers helpers(parts, std::min(cores - 1, count / leastPerThread));
        while (parts.doNext())
            tell(parts.done());
    }
    parts.throwIfFailed();
}

} // namespace rasterplan_tool
