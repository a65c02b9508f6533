#include "radio/terminal.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace qz7radio {
namespace {

std::string Reason(const std::string& what) {
  return what + ": " + std::generic_category().message(errno);
}

bool SetLine(int terminal) {
  termios settings{};
  if (tcgetattr(terminal, &settings) != 0) {
    return false;
  }
  cfmakeraw(&settings);
  cfsetspeed(&settings, B9600);
  settings.c_cflag |= CSTOPB | CREAD | CLOCAL;
  return tcsetattr(terminal, TCSANOW, &settings) == 0;
}

// A terminal that was never opened does not tell that nobody has it open, hence the opening here.
bool PrepareProgramSide(const std::string& name) {
  const int program_side = open(name.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (program_side < 0) {
    return false;
  }
  const bool set = SetLine(program_side);
  return close(program_side) == 0 && set;
}

}  // namespace

std::string OpenTerminal(Terminal& terminal) {
  terminal.master = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  if (terminal.master < 0) {
    return Reason("no pseudo-terminal");
  }
  std::array<char, 128> name{};
  if (grantpt(terminal.master) != 0 || unlockpt(terminal.master) != 0 ||
      ptsname_r(terminal.master, name.data(), name.size()) != 0) {
    return Reason("no pseudo-terminal");
  }
  terminal.name = name.data();
  // In packet mode the terminal also tells when the program purges its queues.
  int packet_mode = 1;
  if (!PrepareProgramSide(terminal.name) || ioctl(terminal.master, TIOCPKT, &packet_mode) != 0) {
    return Reason(terminal.name);
  }
  return "";
}

void CloseTerminal(Terminal& terminal) {
  if (terminal.master >= 0) {
    close(terminal.master);
    terminal.master = -1;
  }
}

TerminalNews ReadTerminal(const Terminal& terminal) {
  TerminalNews news;
  std::array<std::uint8_t, 4096> packet{};
  ssize_t count = 0;
  while ((count = read(terminal.master, packet.data(), packet.size())) > 0) {
    if (packet[0] == TIOCPKT_DATA) {
      news.bytes.insert(news.bytes.end(), packet.begin() + 1, packet.begin() + count);
    } else if ((packet[0] & TIOCPKT_FLUSHREAD) != 0) {
      news.purged = true;
      news.bytes.clear();
    }
  }
  // An input and output error is the master's way to say that nobody has the other side open.
  news.open = count >= 0 || errno != EIO;
  return news;
}

std::size_t WriteTerminal(const Terminal& terminal, const std::vector<std::uint8_t>& bytes) {
  const ssize_t count = write(terminal.master, bytes.data(), bytes.size());
  return count < 0 ? 0 : static_cast<std::size_t>(count);
}

void DropUnread(const Terminal& terminal) {
  // The first call reaches what is still on its way, the second what waits to be read: settings
  // made on the master are the program's side's, and so is the queue that they throw away.
  tcflush(terminal.master, TCOFLUSH);
  termios settings{};
  if (tcgetattr(terminal.master, &settings) == 0) {
    tcsetattr(terminal.master, TCSAFLUSH, &settings);
  }
}

std::string MakeLink(const std::string& path, const Terminal& terminal) {
  std::error_code error;
  const auto there = std::filesystem::symlink_status(path, error).type();
  if (there == std::filesystem::file_type::symlink) {
    std::filesystem::remove(path, error);
  } else if (std::filesystem::exists(path, error)) {
    return path + ": exists and is no symbolic link, so it is not replaced";
  }
  std::filesystem::create_symlink(terminal.name, path, error);
  return error ? path + ": " + error.message() : "";
}

void RemoveLink(const std::string& path, const Terminal& terminal) {
  std::error_code error;
  if (std::filesystem::read_symlink(path, error) == terminal.name && !error) {
    std::filesystem::remove(path, error);
  }
}

}  // namespace qz7radio
