#include "Run.h"

#include "CommandLine.h"
#include "base/Failure.h"
#include "base/Resources.h"
#include "base/VisibleText.h"

#include <new>
#include <system_error>

namespace rasterplan_tool {
namespace {

void obey(const ArgumentReader& readArguments, Console& console, const MemoryWatch& memory) {
    const CommandLineResult parsed = parseCommandLine(readArguments());
    memory.require();
    if (!parsed.command) {
        console.out << parsed.answer;
        console.flush();
        return;
    }
    console.verbosity = parsed.verbosity;
    console.isStrict = parsed.isStrict;
    std::visit([&](const auto& command) { execute(command, console, memory); }, *parsed.command);
}

// As obey, but what the system's libraries throw is put in words too.
void obeyInWords(const ArgumentReader& readArguments, Console& console, const MemoryWatch& memory) {
    try {
        obey(readArguments, console, memory);
    } catch (const Failure&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::system_error& error) {
        throwIfExhausted(error.code());
        throw ExportFailed("the system failed unexpectedly: " + visible(error.what()));
    } catch (const std::exception& error) {
        throw ExportFailed("the system failed unexpectedly: " + visible(error.what()));
    }
}

} // namespace

int run(const ArgumentReader& readArguments, Console console) noexcept {
    const MemoryWatch memory;
    try {
        obeyInWords(readArguments, console, memory);
        return static_cast<int>(ExitStatus::Success);
    } catch (const Failure& failure) {
        if (!memory.ranOut()) { // otherwise it is a mere consequence
            console.error(failure.what());
            return static_cast<int>(failure.status());
        }
    } catch (const std::bad_alloc&) {
        // said below, without another allocation
    }
    console.error("the memory ran out; close other programs or export fewer images at once");
    return static_cast<int>(ExitStatus::Failed);
}

} // namespace rasterplan_tool
