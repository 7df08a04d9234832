// One output stream that never stops its program: what the reader does not take yet waits in
// memory, and a reader that is gone, or a full disk, ends the writing silently.
//
// Owns:      the texts that wait; the descriptor stays the caller's.
// Threads:   one at a time.
// Invariant: no call but drain waits, and drain waits only while its reader takes something.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

class Output {
public:
    // What may wait for a slow reader; progress beyond it is dropped whole.
    static constexpr std::size_t kBacklogLimit = 1024UL * 1024;

    explicit Output(int descriptor) : m_descriptor(descriptor), m_broken(descriptor < 0) { }

    void write(std::string_view text); // kept whatever waits already
    void writeProgress(std::string_view text); // dropped when too much waits
    void drain(); // hands out what waits, before the program ends

private:
    bool flush(int waitMilliseconds); // false when the reader took nothing

    int m_descriptor;
    bool m_broken; // nothing is written any more
    std::string m_waiting;
};
