#include "desktop/toolkit/clipboard.h"

#include "core/image/text_codec.h"

namespace qz7 {
namespace {

// Open as long as it lives. Another program may have it for a moment.
class OpenedClipboard {
 public:
  explicit OpenedClipboard(HWND owner) {
    constexpr int kAttempts = 10;
    constexpr DWORD kPauseMs = 10;
    for (int i = 0; i < kAttempts && !open_; ++i) {
      if (i > 0) {
        Sleep(kPauseMs);
      }
      open_ = OpenClipboard(owner) != FALSE;
    }
  }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;
  ~OpenedClipboard() {
    if (open_) {
      CloseClipboard();
    }
  }
  bool IsOpen() const { return open_; }

 private:
  bool open_ = false;
};

// The clipboard takes the memory over with success.
bool Put(UINT format, const void* bytes, std::size_t size) {
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
  if (memory == nullptr) {
    return false;
  }
  CopyMemory(GlobalLock(memory), bytes, size);
  GlobalUnlock(memory);
  if (SetClipboardData(format, memory) != nullptr) {
    return true;
  }
  GlobalFree(memory);
  return false;
}

std::wstring WideOf(const std::string& text) {
  const std::string utf8 = ToUtf8(text);
  const int size = static_cast<int>(utf8.size());
  std::wstring wide(utf8.size(), L'\0');
  const int length =
      size == 0 ? 0 : MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, wide.data(), size);
  wide.resize(static_cast<std::size_t>(length));
  return wide;
}

std::string Utf8Of(std::wstring_view wide) {
  const int size = static_cast<int>(wide.size());
  if (size == 0) {
    return "";
  }
  const int length =
      WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<std::size_t>(length), '\0');
  WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, utf8.data(), length, nullptr, nullptr);
  return utf8;
}

// All the bytes that the clipboard holds in a format; the system may have rounded their number up.
std::optional<std::string> BytesIn(HWND owner, UINT format) {
  const OpenedClipboard clipboard(owner);
  const HANDLE memory = clipboard.IsOpen() ? GetClipboardData(format) : nullptr;
  const void* bytes = memory != nullptr ? GlobalLock(memory) : nullptr;
  if (bytes == nullptr) {
    return std::nullopt;
  }
  std::string copy(static_cast<const char*>(bytes), GlobalSize(memory));
  GlobalUnlock(memory);
  return copy;
}

}  // namespace

bool PutOnClipboard(HWND owner, UINT format, const Copied& copied) {
  const OpenedClipboard clipboard(owner);
  if (!clipboard.IsOpen() || !EmptyClipboard()) {
    return false;
  }
  const std::wstring text = WideOf(copied.text);
  return Put(format, copied.bytes.data(), copied.bytes.size()) &&
         Put(CF_UNICODETEXT, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}

std::optional<std::string> BytesOnClipboard(HWND owner, UINT format) {
  return BytesIn(owner, format);
}

std::optional<std::string> TextOnClipboard(HWND owner) {
  const std::optional<std::string> bytes = BytesIn(owner, CF_UNICODETEXT);
  if (!bytes) {
    return std::nullopt;
  }
  std::wstring text(bytes->size() / sizeof(wchar_t), L'\0');
  CopyMemory(text.data(), bytes->data(), text.size() * sizeof(wchar_t));
  return FromUtf8Lossy(Utf8Of(std::wstring_view(text).substr(0, text.find(L'\0'))));
}

}  // namespace qz7
