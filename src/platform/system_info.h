// What the machine and the system tell about themselves: release, environment, processes, the program's
// own file. Paths here are those of the file system, not of scripts (platform/files.h maps them).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velm {

// The release of the system's kernel, 6.1.12 in parts. A part that the release doesn't tell is 0.
struct SystemRelease {
    std::int32_t major = 0;
    std::int32_t minor = 0;
    std::int32_t build = 0;
};

// The system's own release.
SystemRelease TheSystemRelease();
// The parts of a release as the system writes it ("6.1.0-18-amd64"): the numbers in front, cut at points.
SystemRelease ParseRelease(std::string_view release);

// The value of an environment variable; the exact name first, then one that differs in the case of ASCII
// letters only. Nothing when there is none.
std::optional<std::string> EnvironmentValue(std::string_view name);

// The path of the running program's file; empty when the system doesn't tell it.
std::string ProgramFile();

// Whether a process other than this one runs the program file. Processes of other users whose file the
// system keeps secret are not seen.
bool OtherProcessRuns(const std::string& programFile);

}  // namespace velm
