// The log of one run, for people: a text file of its own that says what was updated with what, how
// far it came and how it ended. Written line by line, so that a crash leaves what was known.
//
// Owns:      its file's descriptor. From the first log on, the process ignores SIGXFSZ: a file that
//            may not grow is an error of one write, never the end of a run.
// Threads:   one at a time.
// Invariant: texts from outside are made fit to be shown; a line never holds two.
// Errors:    none. A log that cannot be made or goes on no longer says why in problem().
#pragma once
#include "UI/Run/LogFolder.h"
#include "VYM/vymThread.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Of one line's text, in bytes: the longest path is cut off, and little else.
constexpr std::size_t kLogLineLimit = 1000;

struct RunLogFirmware {
    std::string name;
    std::string version;
    std::string nameInPrinter = {}; // what the printer calls it, and the status record
};

struct RunLogFacts {
    std::string program; // with its version
    std::string packageFolder;
    std::string model; // that the package is for
    std::vector<RunLogFirmware> firmware; // all of the package, in order
    std::string printer; // its name, where it has one
    std::string address;
};

class RunLog {
public:
    explicit RunLog(const std::string& folder = logFolder());
    ~RunLog();
    RunLog(const RunLog&) = delete;
    RunLog& operator=(const RunLog&) = delete;

    void start(const RunLogFacts& facts);
    // In place of all else: the package is bad, so that little is known and maybe nothing is run.
    void badPackage(const RunLogFacts& facts, std::string_view problem);
    void note(std::string_view text);
    void look(const tag_devinfo& record); // a line where the stage or the firmware is another one
    void outcome(const tag_entryoutcome& outcome); // of each firmware that was handled, in order
    void end(std::string_view name, std::optional<int> code); // the result's

    [[nodiscard]] const std::string& path() const { return m_path; } // empty: there is none
    [[nodiscard]] const std::string& problem() const { return m_problem; } // empty: all is written

private:
    void begin(const RunLogFacts& facts);
    void line(std::string_view name, std::string_view text);
    void write(std::string_view text);

    int m_descriptor;
    std::string m_path;
    std::string m_problem;
    std::size_t m_firmwareCount = 0;
    std::size_t m_outcomeCount = 0;
    update_state m_state = state_initial;
    std::uint32_t m_firmwareNumber = 0;
};
