#pragma once

#include <string>

/// Finds and describes other running programs. All names and paths are bytes, as the system has
/// them. Nothing here needs a display or Qt; any thread may call it.
namespace osUtils::Process {

/// What getPidInfos() tells of one process.
struct pidInfos {
    /// The process that is asked about, set by the caller.
    int pid = 0;
    /// Not touched.
    int reserved = 0;
    /// The executable; empty for a process without a listed window.
    std::string path = {};
    /// What the user knows the program by, else as get_application_basename().
    std::string name = {};
    /// Desktop-entry id, without ".desktop". Points at text that stays for the life of the process;
    /// left as it was when there is no entry.
    const char* bundleId = nullptr;
};

/// Describes the process `info->pid`, which is to be set before.
///
/// An application is a process with a window that the window manager lists, and its first window
/// tells what it is. The name is that of the installed desktop entry which the window names or
/// whose id or window class it bears, in the user's language, or the entry's id if it has no name;
/// without an entry, the window's class. A window that tells neither leaves name and path as for
/// any other process: its own name, and no path.
///
/// Waits for a silent X server no longer than getCurrentFocusProcess().
void getPidInfos(pidInfos* info);

/// The lowest id of the processes whose short name is exactly this, or -1.
///
/// The short name is the kernel's, of 15 bytes at most: a program with a longer file name is found
/// under the first 15 bytes, and a longer name matches nothing. A process that has ended counts
/// until its parent has taken notice. Writes "could not reallocate memory" to the error stream, and
/// finds nothing, when there is no memory for the table of processes.
[[nodiscard]] int getProcessId(std::string name);

/// The process of the window manager's active window, or without one that of the window which gets
/// the keys; -1 when none can be known: no X11 display (another window system, or none), no such
/// window, or one on another machine. The X server is asked whose the window is. Where it does not
/// tell, or counts processes otherwise than this machine does, the window's own word is taken.
///
/// Asks over Qt's connection if it has one, and then waits as Qt does, else over one of its own to
/// $DISPLAY. A server there that does not answer is given up after three seconds; until it answers
/// or goes away, further questions find nothing at once.
[[nodiscard]] int getCurrentFocusProcess();

/// The name of a process's program; empty if there is no such process. The kernel keeps 15 bytes of
/// it, which the executable's name or one of the first arguments completes where it can.
[[nodiscard]] std::string get_application_basename(int pid);

/// Always empty: the path of a process is in getPidInfos().
[[nodiscard]] std::string get_application_path(int pid);

/// Always empty.
[[nodiscard]] std::string getWindowTitle(int pid);

/// Calls `kill(0, pid)` and tells whether that succeeded. Beware: the system takes the first number
/// for the process and the second for the signal, so that a small positive number is sent as a
/// signal to the caller's own process group, and an ordinary process id makes the call fail.
[[nodiscard]] bool is_executable_alive(int pid);

/// The id of the first process with this short name or -1, as getProcessId() finds it; not a truth
/// value.
[[nodiscard]] int is_executable_alive(const std::string& name);

/// Calls `kill(3, pid)`, then `kill(0, pid)`, and tells whether the second succeeded. Beware: as
/// for is_executable_alive(int), a small positive number is sent as a signal, first to process 3,
/// then to the caller's own process group.
bool closeProcess(int pid);

/// closeProcess() with the id that getProcessId() finds, also if that is -1. Beware as above: the
/// programs that the system starts first have such small ids.
bool closeProcess(const std::string& name);

}
