#include <windows.h>

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "core/link/serial_port.h"

namespace qz7 {
namespace {

constexpr DWORD kLongestName = 256;  // of a registry key, its 0 included

std::string Utf8Of(const std::wstring& text) {
  const int size = static_cast<int>(text.size());
  const int needed =
      WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(needed), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), size, bytes.data(), needed, nullptr, nullptr);
  return bytes;
}

class Key {
 public:
  Key(HKEY parent, const std::wstring& path) {
    if (RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ, &key_) != ERROR_SUCCESS) {
      key_ = nullptr;
    }
  }
  Key(const Key&) = delete;
  Key& operator=(const Key&) = delete;
  ~Key() {
    if (key_ != nullptr) {
      RegCloseKey(key_);
    }
  }

  HKEY Handle() const { return key_; }

  // A text value; empty where there is none.
  std::wstring Text(const wchar_t* name) const {
    std::array<wchar_t, kLongestName> text{};
    DWORD type = 0;
    DWORD size = sizeof text - sizeof(wchar_t);
    const LSTATUS read =
        RegQueryValueExW(key_, name, nullptr, &type, reinterpret_cast<BYTE*>(text.data()), &size);
    return read == ERROR_SUCCESS && type == REG_SZ ? text.data() : L"";
  }

  std::vector<std::wstring> Children() const {
    std::vector<std::wstring> names;
    std::array<wchar_t, kLongestName> name{};
    DWORD size = kLongestName;
    for (DWORD i = 0; RegEnumKeyExW(key_, i, name.data(), &size, nullptr, nullptr, nullptr,
                                    nullptr) == ERROR_SUCCESS;
         ++i) {
      names.emplace_back(name.data(), size);
      size = kLongestName;
    }
    return names;
  }

 private:
  HKEY key_ = nullptr;
};

bool IsPortName(const std::wstring& name) {
  constexpr std::size_t kPrefix = 3;
  constexpr std::size_t kLongest = 6;
  return name.size() > kPrefix && name.size() <= kLongest && name.starts_with(L"COM") &&
         name.find_first_not_of(L"0123456789", kPrefix) == std::wstring::npos;
}

// The system's list of serial ports that work now: the device of each and its name.
std::vector<std::wstring> NamesInRegistry() {
  std::vector<std::wstring> names;
  const Key list(HKEY_LOCAL_MACHINE, L"HARDWARE\\DEVICEMAP\\SERIALCOMM");
  std::array<wchar_t, kLongestName> value{};
  DWORD size = kLongestName;
  for (DWORD i = 0; RegEnumValueW(list.Handle(), i, value.data(), &size, nullptr, nullptr, nullptr,
                                  nullptr) == ERROR_SUCCESS;
       ++i) {
    names.push_back(list.Text(value.data()));
    size = kLongestName;
  }
  return names;
}

// Every name of a device; ports of some drivers stand here alone.
std::vector<std::wstring> NamesOfDevices() {
  constexpr DWORD kRoom = 65536;
  std::vector<wchar_t> room(kRoom);
  const DWORD size = QueryDosDeviceW(nullptr, room.data(), kRoom);
  std::vector<std::wstring> names;
  for (const wchar_t* name = room.data(); name < room.data() + size && *name != 0;
       name += names.back().size() + 1) {
    names.emplace_back(name);
  }
  return names;
}

// What a device calls itself, where it has a port. One that works now has a "Control" key; others
// have only been here once.
void NoteDevice(const Key& device, std::map<std::wstring, std::wstring>& descriptions) {
  const std::wstring port = Key(device.Handle(), L"Device Parameters").Text(L"PortName");
  if (!IsPortName(port) || Key(device.Handle(), L"Control").Handle() == nullptr) {
    return;
  }
  std::wstring text = device.Text(L"FriendlyName");
  const std::size_t name_again = text.rfind(L" (" + port + L")");
  if (name_again != std::wstring::npos) {
    text.erase(name_again);
  }
  descriptions[port] = text;
}

void ForEachChild(const Key& key, const std::function<void(const Key&)>& visit) {
  for (const std::wstring& name : key.Children()) {
    visit(Key(key.Handle(), name));
  }
}

// Devices stand in the registry by bus, kind and number.
std::map<std::wstring, std::wstring> Descriptions() {
  std::map<std::wstring, std::wstring> descriptions;
  const Key buses(HKEY_LOCAL_MACHINE, L"SYSTEM\\CurrentControlSet\\Enum");
  ForEachChild(buses, [&](const Key& bus) {
    ForEachChild(bus, [&](const Key& kind) {
      ForEachChild(kind, [&](const Key& device) { NoteDevice(device, descriptions); });
    });
  });
  return descriptions;
}

}  // namespace

std::vector<PortInfo> ListSerialPorts() {
  std::map<int, std::wstring> names;
  for (const auto& found : {NamesInRegistry(), NamesOfDevices()}) {
    for (const std::wstring& name : found) {
      if (IsPortName(name)) {
        names[std::stoi(name.substr(3))] = name;
      }
    }
  }
  const auto descriptions = names.empty() ? std::map<std::wstring, std::wstring>() : Descriptions();
  std::vector<PortInfo> ports;
  for (const auto& [number, name] : names) {
    const auto text = descriptions.find(name);
    const bool is_described = text != descriptions.end() && !text->second.empty();
    ports.push_back(
        {Utf8Of(name), is_described ? Utf8Of(text->second) : "serial port", PortStatus::kOpen});
  }
  return ports;
}

}  // namespace qz7
