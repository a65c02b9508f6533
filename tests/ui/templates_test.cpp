#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstring>
#include <map>

#include "desktop/locations.h"
#include "desktop/toolkit/dialog_support.h"
#include "resources/control_ids.h"

// Every dialog template of the library and of the program, as the user meets it: texts that fit at
// each of the usual resolutions, access keys of their own, an order that runs with the eye.
namespace qz7 {
namespace {

constexpr int kResolutions[] = {96, 120, 144, 192};

struct Template {
  std::string name;
  HMODULE module;
};

BOOL CALLBACK AddName(HMODULE module, LPCSTR, LPSTR name, LONG_PTR list) {
  reinterpret_cast<std::vector<Template>*>(list)->push_back({name, module});
  return TRUE;
}

std::vector<Template> AllTemplates() {
  std::vector<Template> templates;
  static const HMODULE library = LoadLibraryW(BesideProgram("qz732.dll").c_str());
  for (const HMODULE module : {library, GetModuleHandleA(nullptr)}) {
    EnumResourceNamesA(module, RT_DIALOG, AddName, reinterpret_cast<LONG_PTR>(&templates));
  }
  return templates;
}

// Behind a text or a number of a template.
const WORD* Skip(const WORD* words) {
  if (*words == 0xFFFF) {
    return words + 2;
  }
  while (*words != 0) {
    ++words;
  }
  return words + 1;
}

// The template with its letters as large as the system makes them at a resolution.
std::vector<char> TemplateAt(const Template& dialog, int resolution) {
  const HRSRC resource = FindResourceA(dialog.module, dialog.name.c_str(), RT_DIALOG);
  const char* bytes = static_cast<const char*>(LockResource(LoadResource(dialog.module, resource)));
  std::vector<char> copy(bytes, bytes + SizeofResource(dialog.module, resource));
  constexpr std::size_t kMenuPlace = 26;
  const auto* words = reinterpret_cast<const WORD*>(copy.data() + kMenuPlace);
  words = Skip(Skip(Skip(words)));
  auto* points = const_cast<WORD*>(words);
  *points = static_cast<WORD>(*points * resolution / 96);
  return copy;
}

INT_PTR CALLBACK NothingProc(HWND, UINT message, WPARAM, LPARAM) {
  return message == WM_INITDIALOG ? TRUE : FALSE;
}

class OpenTemplate {
 public:
  OpenTemplate(const Template& dialog, int resolution) : bytes_(TemplateAt(dialog, resolution)) {
    parent_ = CreateWindowExA(0, "STATIC", "", WS_OVERLAPPED, 0, 0, 10, 10, nullptr, nullptr,
                              nullptr, nullptr);
    window = CreateDialogIndirectParamA(
        dialog.module, reinterpret_cast<LPCDLGTEMPLATEA>(bytes_.data()), parent_, NothingProc, 0);
    EXPECT_NE(window, nullptr) << dialog.name;
  }
  OpenTemplate(const OpenTemplate&) = delete;
  OpenTemplate& operator=(const OpenTemplate&) = delete;
  ~OpenTemplate() {
    DestroyWindow(window);
    DestroyWindow(parent_);
  }
  HWND window;

 private:
  std::vector<char> bytes_;
  HWND parent_;
};

std::vector<HWND> ControlsOf(HWND dialog) {
  std::vector<HWND> controls;
  for (HWND control = GetWindow(dialog, GW_CHILD); control != nullptr;
       control = GetWindow(control, GW_HWNDNEXT)) {
    controls.push_back(control);
  }
  return controls;
}

RECT AreaOf(HWND control) {
  RECT area;
  GetWindowRect(control, &area);
  MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&area), 2);
  return area;
}

std::string ClassOf(HWND control) {
  char name[40] = "";
  GetClassNameA(control, name, sizeof name);
  return name;
}

DWORD StyleOf(HWND control) { return static_cast<DWORD>(GetWindowLongPtrA(control, GWL_STYLE)); }
bool IsButton(HWND control) { return ClassOf(control) == "Button"; }
DWORD ButtonKind(HWND control) { return IsButton(control) ? StyleOf(control) & BS_TYPEMASK : ~0U; }
bool IsGroupBox(HWND control) { return ButtonKind(control) == BS_GROUPBOX; }
bool IsText(HWND control) {
  const DWORD kind = StyleOf(control) & SS_TYPEMASK;
  return ClassOf(control) == "Static" && (kind <= SS_RIGHT || kind == SS_LEFTNOWORDWRAP);
}
bool HasPrefix(HWND control) {
  return IsButton(control) || (IsText(control) && (StyleOf(control) & SS_NOPREFIX) == 0);
}

std::string CaptionOf(HWND control) {
  char text[300] = "";
  GetWindowTextA(control, text, sizeof text);
  return text;
}

// What a kind of control needs beside its text, in pixels at 96 dots per inch.
int ExtraWidth(HWND control) {
  switch (ButtonKind(control)) {
    case BS_PUSHBUTTON:
    case BS_DEFPUSHBUTTON:
      return 8;
    case BS_AUTOCHECKBOX:
    case BS_AUTORADIOBUTTON:
    case BS_CHECKBOX:
    case BS_RADIOBUTTON:
      return 17;
    case BS_GROUPBOX:
      return 18;
    default:
      return 0;
  }
}

SIZE TextSize(HWND control, int width) {
  const std::string text = CaptionOf(control);
  const HDC device = GetDC(control);
  const HGDIOBJ old =
      SelectObject(device, reinterpret_cast<HGDIOBJ>(SendMessageA(control, WM_GETFONT, 0, 0)));
  RECT area{0, 0, width, 0};
  const UINT breaking = IsText(control) ? DT_WORDBREAK : DT_SINGLELINE;
  const UINT prefix = HasPrefix(control) ? 0U : DT_NOPREFIX;
  DrawTextA(device, text.c_str(), -1, &area, DT_CALCRECT | breaking | prefix);
  SelectObject(device, old);
  ReleaseDC(control, device);
  return {area.right, area.bottom};
}

char AccessKeyOf(HWND control) {
  const std::string text = HasPrefix(control) ? CaptionOf(control) : "";
  for (std::size_t i = 0; i + 1 < text.size(); ++i) {
    if (text[i] == '&') {
      if (text[i + 1] != '&') {
        return static_cast<char>(std::toupper(static_cast<unsigned char>(text[i + 1])));
      }
      ++i;
    }
  }
  return 0;
}

TEST(Templates, AreThere) {
  std::vector<std::string> names;
  for (const Template& dialog : AllTemplates()) {
    names.push_back(dialog.name);
  }
  for (const char* name :
       {"DLLDLGMAIN",           "DLLDLGREADRADIO",  "DLLDLGWRITERADIO", "DLLDLGWRITERADIODONE",
        "DLLDLGCREATETEMPLATE", "DLLDLGDEFAULTS",   "DLLDLGABOUT",      "DLLDLGSETTING",
        "DLLDLGVORN",           "DLLDLGAUTODIAL",   "DLLDLGWXNAMES",    "DLLDLGICONSELECT",
        "DLLDLGLISTMEMORY",     "DLLDLGEDITMEMORY", "DLLDLGEDITVFO",    "DLLDLGGROUPLIST",
        "DLLDLGCOPYMANY",       "DLGPROCSETUPPORT", "DLGIMPORT",        "DLGIMPORTLIST",
        "DLGSELECTLIST",        "DLGMERGEMEM",      "DLLDLGFINDCHANNEL"}) {
    EXPECT_EQ(std::count(names.begin(), names.end(), name), 1) << name;
  }
}

TEST(Templates, TextsFitTheirControls) {
  for (const Template& dialog : AllTemplates()) {
    for (const int resolution : kResolutions) {
      const OpenTemplate open(dialog, resolution);
      for (const HWND control : ControlsOf(open.window)) {
        if (!IsButton(control) && !IsText(control)) {
          continue;
        }
        const RECT area = AreaOf(control);
        const int room = area.right - area.left - ExtraWidth(control) * resolution / 96;
        const SIZE text = TextSize(control, room);
        EXPECT_LE(text.cx, room) << dialog.name << " " << resolution << " " << CaptionOf(control);
        if (!IsGroupBox(control)) {
          EXPECT_LE(text.cy, area.bottom - area.top)
              << dialog.name << " " << resolution << " " << CaptionOf(control);
        }
      }
    }
  }
}

TEST(Templates, ControlsLieInsideAndNotOnEachOther) {
  for (const Template& dialog : AllTemplates()) {
    const OpenTemplate open(dialog, 96);
    RECT client;
    GetClientRect(open.window, &client);
    const std::vector<HWND> controls = ControlsOf(open.window);
    for (std::size_t i = 0; i < controls.size(); ++i) {
      const RECT area = AreaOf(controls[i]);
      EXPECT_TRUE(area.left >= 0 && area.top >= 0 && area.right <= client.right &&
                  area.bottom <= client.bottom)
          << dialog.name << " " << CaptionOf(controls[i]);
      for (std::size_t j = i + 1; j < controls.size(); ++j) {
        const RECT other = AreaOf(controls[j]);
        RECT common;
        if (!IsGroupBox(controls[i]) && !IsGroupBox(controls[j])) {
          EXPECT_FALSE(IntersectRect(&common, &area, &other))
              << dialog.name << " " << CaptionOf(controls[i]) << " " << CaptionOf(controls[j]);
        }
      }
    }
  }
}

TEST(Templates, AccessKeysAreUnique) {
  for (const Template& dialog : AllTemplates()) {
    const OpenTemplate open(dialog, 96);
    std::map<char, std::string> keys;
    if (dialog.name == "DLLDLGMAIN") {
      for (const char key : {'F', 'R', 'M', 'O', 'H'}) {
        keys[key] = "the menu";
      }
    }
    for (const HWND control : ControlsOf(open.window)) {
      const char key = AccessKeyOf(control);
      if (key != 0) {
        const auto [place, fresh] = keys.try_emplace(key, CaptionOf(control));
        EXPECT_TRUE(fresh) << dialog.name << ": " << place->second << ", " << CaptionOf(control);
      }
    }
  }
}

bool TakesFocus(HWND control) {
  const std::string kind = ClassOf(control);
  const bool shows_only = kind == "ListBox" && (StyleOf(control) & LBS_NOSEL) != 0;
  return !shows_only && !IsGroupBox(control) && kind != "Static";
}

bool IsRadio(HWND control) { return ButtonKind(control) == BS_AUTORADIOBUTTON; }

// The controls between two beginnings of a group, which the arrow keys go round in.
std::vector<HWND> GroupOf(HWND control) {
  HWND first = control;
  while ((StyleOf(first) & WS_GROUP) == 0 && GetWindow(first, GW_HWNDPREV) != nullptr) {
    first = GetWindow(first, GW_HWNDPREV);
  }
  std::vector<HWND> group{first};
  for (HWND next = GetWindow(first, GW_HWNDNEXT);
       next != nullptr && (StyleOf(next) & WS_GROUP) == 0; next = GetWindow(next, GW_HWNDNEXT)) {
    group.push_back(next);
  }
  return group;
}

// Its own or that of the text before it.
bool HasAccessKey(HWND control) {
  const HWND label = GetWindow(control, GW_HWNDPREV);
  return AccessKeyOf(control) != 0 ||
         (label != nullptr && IsText(label) && AccessKeyOf(label) != 0);
}

bool IsReached(HWND control) {
  const auto stops = [](HWND one) { return (StyleOf(one) & WS_TABSTOP) != 0; };
  const std::vector<HWND> group = GroupOf(control);
  return stops(control) || HasAccessKey(control) ||
         (IsRadio(control) && IsRadio(group.front()) &&
          std::any_of(group.begin(), group.end(), stops));
}

TEST(Templates, TheKeyboardReachesEveryControl) {
  for (const Template& dialog : AllTemplates()) {
    const OpenTemplate open(dialog, 96);
    for (const HWND control : ControlsOf(open.window)) {
      EXPECT_TRUE(!TakesFocus(control) || IsReached(control))
          << dialog.name << ": " << GetDlgCtrlID(control) << ' ' << CaptionOf(control);
    }
  }
}

// Tab alone leads to a list that has no label of its own to hold a key.
bool HasTabAlone(const Template& dialog, int id) {
  const std::pair<const char*, int> lists[] = {{"DLLDLGLISTMEMORY", ID_CHANNEL_LIST},
                                               {"DLLDLGGROUPLIST", ID_GROUP_MEMBERS},
                                               {"DLGSELECTLIST", ID_IMPORT_ROWS}};
  return std::any_of(std::begin(lists), std::end(lists), [&](const auto& list) {
    return dialog.name == list.first && id == list.second;
  });
}

// OK and Cancel have Enter and Esc.
TEST(Templates, EveryControlToFillInHasAnAccessKey) {
  for (const Template& dialog : AllTemplates()) {
    const OpenTemplate open(dialog, 96);
    for (const HWND control : ControlsOf(open.window)) {
      const std::vector<HWND> group = GroupOf(control);
      const bool by_group = IsRadio(control) && HasAccessKey(group.front());
      const int id = GetDlgCtrlID(control);
      EXPECT_TRUE(!TakesFocus(control) || HasAccessKey(control) || by_group || id == IDOK ||
                  id == IDCANCEL || HasTabAlone(dialog, id))
          << dialog.name << ": " << id << ' ' << CaptionOf(control);
    }
  }
}

// The longest of what these lines say, which the template does not hold.
TEST(Templates, WhatTheChannelEditorTellsFitsItsLines) {
  const std::pair<int, const char*> texts[] = {
      {ID_RECEIVE_READING, "428.8888 MHz, U Ham, not received by this radio"},
      {ID_RECEIVE_READING, "214748.3647 MHz, outside the bands"},
      {ID_RECEIVE_READING, "428.8888 MHz, V Ham, not in the band V Ham"},
      {ID_RECEIVE_READING, "No frequency: OK leaves the channel empty"},
      {ID_OFFSET_READING, "214.7483 MHz, more than 99.95 MHz"},
      {ID_OFFSET_READING, "88.8888 MHz, not in 5 kHz steps"},
      {ID_TRANSMIT_READING, "468.8888 MHz, U Ham, 6.25 kHz steps"},
      {ID_TRANSMIT_READING, "214748.3647 MHz, outside the bands"},
      {ID_TONE_USE, "A tone type without a name: which list it uses is not known."}};
  for (const Template& dialog : AllTemplates()) {
    for (const int resolution : kResolutions) {
      const OpenTemplate open(dialog, resolution);
      for (const auto& [id, text] : texts) {
        const HWND line = GetDlgItem(open.window, id);
        if (dialog.name != "DLLDLGEDITMEMORY" && dialog.name != "DLLDLGEDITVFO") {
          continue;
        }
        SetWindowTextA(line, text);
        const RECT area = AreaOf(line);
        const SIZE size = TextSize(line, area.right - area.left);
        EXPECT_LE(size.cx, area.right - area.left) << dialog.name << ' ' << resolution << text;
        EXPECT_LE(size.cy, area.bottom - area.top) << dialog.name << ' ' << resolution << text;
      }
    }
  }
}

// The next control of the tab order lies below the last one, or to its right.
TEST(Templates, TheTabOrderRunsWithTheEye) {
  for (const Template& dialog : AllTemplates()) {
    const OpenTemplate open(dialog, 96);
    HWND last = nullptr;
    for (const HWND control : ControlsOf(open.window)) {
      if ((StyleOf(control) & WS_TABSTOP) == 0) {
        continue;
      }
      if (last != nullptr) {
        const RECT before = AreaOf(last);
        const RECT area = AreaOf(control);
        EXPECT_TRUE(area.top >= before.bottom || area.left >= before.right)
            << dialog.name << ": " << CaptionOf(last) << ", " << CaptionOf(control);
      }
      last = control;
    }
  }
}

// So that the Enter key does something in each of them.
TEST(Templates, EveryPopupHasADefaultButton) {
  for (const Template& dialog : AllTemplates()) {
    const OpenTemplate open(dialog, 96);
    if ((StyleOf(open.window) & WS_CHILD) != 0) {
      continue;
    }
    const std::vector<HWND> controls = ControlsOf(open.window);
    EXPECT_EQ(std::count_if(controls.begin(), controls.end(),
                            [](HWND control) { return ButtonKind(control) == BS_DEFPUSHBUTTON; }),
              1)
        << dialog.name;
  }
}

BOOL CALLBACK AddType(HMODULE, LPSTR type, LONG_PTR types) {
  reinterpret_cast<std::vector<ULONG_PTR>*>(types)->push_back(reinterpret_cast<ULONG_PTR>(type));
  return TRUE;
}

TEST(ResourceLibrary, HoldsTemplatesAndBitmapsAlone) {
  const HMODULE library = LoadLibraryW(BesideProgram("qz732.dll").c_str());
  std::vector<ULONG_PTR> types;  // no texts: their numbers
  EnumResourceTypesA(library, AddType, reinterpret_cast<LONG_PTR>(&types));
  std::sort(types.begin(), types.end());
  EXPECT_EQ(types, (std::vector{reinterpret_cast<ULONG_PTR>(RT_BITMAP),
                                reinterpret_cast<ULONG_PTR>(RT_DIALOG)}));
  FreeLibrary(library);
}

}  // namespace
}  // namespace qz7
