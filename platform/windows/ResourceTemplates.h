// The binary forms of the resources the language tools read: dialog
// templates (classic and extended), menu templates (classic and extended),
// string-table blocks and tool bars. Each reader checks every count and
// length against the bytes it is given and fails cleanly on damage; the
// writers make the classic forms, for modules built in memory.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/windows/PeImage.h"

namespace tolv {

struct DialogItemTemplate {
  std::uint32_t helpId = 0;
  std::uint32_t style = 0;
  std::uint32_t exStyle = 0;
  std::int16_t x = 0, y = 0, cx = 0, cy = 0;
  std::uint32_t id = 0;
  // A predefined class is a number (0x80 button ... 0x85 combo box).
  ResName windowClass;
  ResName title;
  std::uint16_t extraSize = 0;

  // The class name of the window the item becomes ("Button", "Edit", ...).
  std::wstring ClassName() const;
};

struct DialogTemplate {
  bool extended = false;
  std::uint32_t helpId = 0;
  std::uint32_t style = 0;
  std::uint32_t exStyle = 0;
  std::int16_t x = 0, y = 0, cx = 0, cy = 0;
  ResName menu;
  ResName windowClass;
  std::wstring title;
  std::uint16_t pointSize = 0;
  std::uint16_t weight = 0;
  std::uint8_t italic = 0, charSet = 0;
  std::wstring typeface;
  std::vector<DialogItemTemplate> items;
};

// A menu item or popup; a popup has `popup` set and its items in `items`.
struct MenuItemTemplate {
  std::uint32_t flags = 0;  // classic option flags, or the extended type
  std::uint32_t state = 0;
  std::uint32_t id = 0;
  bool popup = false;
  std::wstring text;
  std::vector<MenuItemTemplate> items;
};

struct MenuTemplate {
  bool extended = false;
  std::vector<MenuItemTemplate> items;
};

struct ToolBarTemplate {
  std::uint16_t version = 0, width = 0, height = 0;
  std::vector<std::uint16_t> ids;  // 0 is a separator
};

// The framework's initial data of a dialog's controls (resource type 240):
// for each record the control id, the message that fills it (the 16-bit
// LB_ADDSTRING 0x0401 or CB_ADDSTRING 0x0403, or the 32-bit codes) and the
// entry as narrow text of the module's code page.
struct DialogInitRecord {
  std::uint16_t control = 0;
  std::uint16_t message = 0;
  std::string text;
};

bool ParseDialogTemplate(std::string_view bytes, DialogTemplate &dialog);
// Stops at the closing zero id or the end; false when a record runs past it.
bool ParseDialogInit(std::string_view bytes, std::vector<DialogInitRecord> &records);
std::string WriteDialogInit(const std::vector<DialogInitRecord> &records);
bool ParseMenuTemplate(std::string_view bytes, MenuTemplate &menu);
// The 16 strings of a block; a block whose lengths run past the end fails.
bool ParseStringBlock(std::string_view bytes, std::array<std::wstring, 16> &strings);
bool ParseToolBar(std::string_view bytes, ToolBarTemplate &toolBar);

// The classic forms (a dialog with its font when the style asks for one).
std::string WriteDialogTemplate(const DialogTemplate &dialog);
std::string WriteMenuTemplate(const MenuTemplate &menu);
std::string WriteStringBlock(const std::array<std::wstring, 16> &strings);

}  // namespace tolv
