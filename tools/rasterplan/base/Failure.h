#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

namespace rasterplan_tool {

/// What the program answers to the system.
enum class ExitStatus : int {
    Success = 0, ///< Done; warnings may have been printed.
    Failed = 1,  ///< The input was right, but nothing was written, or faults or warnings were found.
    BadInput = 2 ///< The command line, SITE.json or what it leads to is wrong.
};

/// A failure in words for the user: what, where and what to do. Several failures stand in one line each.
class Failure : public std::runtime_error {
public:
    Failure(ExitStatus status, const std::string& text)
        : std::runtime_error(text)
        , m_status(status) {}

    /// The exit status that goes with the failure; never Success.
    ExitStatus status() const noexcept { return m_status; }

private:
    ExitStatus m_status;
};

/// A mistake in what the user gave.
class BadInput : public Failure {
public:
    explicit BadInput(const std::string& text)
        : Failure(ExitStatus::BadInput, text) {}
};

/// Collects what is wrong with several images, so that the user sees all of it at once.
class BadInputList {
public:
    /// Notes one line.
    void add(const std::string& text);

    /// Throws BadInput with all lines; of very many only the first ones and how many more there are.
    void throwIfAny() const;

private:
    std::string m_text;
    std::size_t m_count = 0;
};

/// A drawing that was checked and is not right; the faults have been printed.
class FaultsFound : public Failure {
public:
    explicit FaultsFound(const std::string& text)
        : Failure(ExitStatus::Failed, text) {}
};

/// Warnings where the user wants none; they have been printed.
class WarningsFound : public Failure {
public:
    explicit WarningsFound(const std::string& text)
        : Failure(ExitStatus::Failed, text) {}
};

/// A drawing that could not be written.
class ExportFailed : public Failure {
public:
    explicit ExportFailed(const std::string& text)
        : Failure(ExitStatus::Failed, text) {}
};

} // namespace rasterplan_tool
