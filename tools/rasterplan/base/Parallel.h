#pragma once

#include <cstddef>
#include <functional>

namespace rasterplan_tool {

/// Calls `work(i)` for every i from 0 to `count` - 1, in as many threads at once as the machine has cores,
/// the caller's one of them; fewer where there is little to do or the system gives no more threads.
/// `tell(done)` is called in the caller's thread alone, after each of its own parts, with how many parts are
/// done. What the calls throw is thrown on when all threads have ended, that of the lowest i first; parts
/// behind it may be left undone.
void inParallel(std::size_t count, const std::function<void(std::size_t)>& work,
                const std::function<void(std::size_t)>& tell);

} // namespace rasterplan_tool
