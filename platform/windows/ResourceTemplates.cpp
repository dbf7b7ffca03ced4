#include "platform/windows/ResourceTemplates.h"

#include <algorithm>

namespace tolv {

namespace {

// Nesting of popups in real menus is a handful of levels.
constexpr int kMaxMenuDepth = 64;
constexpr std::uint32_t kDialogSetFont = 0x40;

// A cursor over the bytes of one resource; every read checks the end.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : b_(bytes) {}
  bool U8(std::uint8_t &v) {
    if (at_ >= b_.size()) return false;
    v = static_cast<std::uint8_t>(b_[at_++]);
    return true;
  }
  bool U16(std::uint16_t &v) {
    if (!ReadU16(b_, at_, v)) return false;
    at_ += 2;
    return true;
  }
  bool I16(std::int16_t &v) {
    std::uint16_t u = 0;
    if (!U16(u)) return false;
    v = static_cast<std::int16_t>(u);
    return true;
  }
  bool U32(std::uint32_t &v) {
    if (!ReadU32(b_, at_, v)) return false;
    at_ += 4;
    return true;
  }
  // A null-terminated UTF-16 text.
  bool Text(std::wstring &text) {
    text.clear();
    for (;;) {
      std::uint16_t unit = 0;
      if (!U16(unit)) return false;
      if (unit == 0) return true;
      text.push_back(static_cast<wchar_t>(unit));
    }
  }
  // A number (0xFFFF and the number), nothing (0) or a text.
  bool NameOrId(ResName &name) {
    std::uint16_t first = 0;
    if (!ReadU16(b_, at_, first)) return false;
    name = ResName{};
    if (first == 0xFFFF) {
      at_ += 2;
      return U16(name.id);
    }
    if (first == 0) {
      at_ += 2;
      return true;
    }
    return Text(name.text);
  }
  bool Skip(std::size_t n) {
    if (b_.size() - at_ < n) return false;
    at_ += n;
    return true;
  }
  // Items start on a four-byte boundary of the template.
  void Align4() { at_ = std::min(at_ + (4 - at_ % 4) % 4, b_.size()); }
  std::size_t Remaining() const { return b_.size() - at_; }
  std::size_t At() const { return at_; }
  void Seek(std::size_t at) { at_ = at; }

 private:
  std::string_view b_;
  std::size_t at_ = 0;
};

void PutU16(std::string &out, std::uint16_t v) {
  out.push_back(static_cast<char>(v & 0xFF));
  out.push_back(static_cast<char>(v >> 8));
}
void PutU32(std::string &out, std::uint32_t v) {
  PutU16(out, static_cast<std::uint16_t>(v & 0xFFFF));
  PutU16(out, static_cast<std::uint16_t>(v >> 16));
}
void PutText(std::string &out, const std::wstring &text) {
  for (wchar_t c : text) PutU16(out, static_cast<std::uint16_t>(c));
  PutU16(out, 0);
}
void PutName(std::string &out, const ResName &name) {
  if (!name.IsId()) {
    PutText(out, name.text);
  } else if (name.id == 0) {
    PutU16(out, 0);
  } else {
    PutU16(out, 0xFFFF);
    PutU16(out, name.id);
  }
}
void PadTo4(std::string &out) {
  while (out.size() % 4) out.push_back('\0');
}

bool ParseMenuItems(Reader &r, std::vector<MenuItemTemplate> &items, int depth) {
  if (depth > kMaxMenuDepth) return false;
  for (;;) {
    MenuItemTemplate item;
    std::uint16_t flags = 0;
    if (!r.U16(flags)) return false;
    item.flags = flags & ~0x80u;
    item.popup = (flags & 0x10) != 0;
    if (!item.popup) {
      std::uint16_t id = 0;
      if (!r.U16(id)) return false;
      item.id = id;
    }
    if (!r.Text(item.text)) return false;
    if (item.popup && !ParseMenuItems(r, item.items, depth + 1)) return false;
    items.push_back(std::move(item));
    if (flags & 0x80) return true;
  }
}

bool ParseMenuExItems(Reader &r, std::vector<MenuItemTemplate> &items, int depth) {
  if (depth > kMaxMenuDepth) return false;
  for (;;) {
    MenuItemTemplate item;
    std::uint16_t resInfo = 0;
    if (!r.U32(item.flags) || !r.U32(item.state) || !r.U32(item.id) || !r.U16(resInfo) ||
        !r.Text(item.text))
      return false;
    r.Align4();
    item.popup = (resInfo & 0x01) != 0;
    if (item.popup) {
      std::uint32_t helpId = 0;
      if (!r.U32(helpId) || !ParseMenuExItems(r, item.items, depth + 1)) return false;
    }
    items.push_back(std::move(item));
    if (resInfo & 0x80) return true;
  }
}

void WriteMenuItems(std::string &out, const std::vector<MenuItemTemplate> &items) {
  for (std::size_t i = 0; i < items.size(); ++i) {
    const MenuItemTemplate &item = items[i];
    std::uint16_t flags = static_cast<std::uint16_t>(item.flags & ~0x90u);
    if (item.popup) flags |= 0x10;
    if (i + 1 == items.size()) flags |= 0x80;
    PutU16(out, flags);
    if (!item.popup) PutU16(out, static_cast<std::uint16_t>(item.id));
    PutText(out, item.text);
    if (item.popup) WriteMenuItems(out, item.items);
  }
}

}  // namespace

std::wstring DialogItemTemplate::ClassName() const {
  if (!windowClass.IsId()) return windowClass.text;
  switch (windowClass.id) {
    case 0x80: return L"Button";
    case 0x81: return L"Edit";
    case 0x82: return L"Static";
    case 0x83: return L"ListBox";
    case 0x84: return L"ScrollBar";
    case 0x85: return L"ComboBox";
    default: return L"#" + std::to_wstring(windowClass.id);
  }
}

bool ParseDialogTemplate(std::string_view bytes, DialogTemplate &d) {
  d = DialogTemplate{};
  Reader r(bytes);
  std::uint16_t version = 0, signature = 0, count = 0;
  if (!ReadU16(bytes, 0, version) || !ReadU16(bytes, 2, signature)) return false;
  d.extended = version == 1 && signature == 0xFFFF;
  if (d.extended) {
    r.Skip(4);
    if (!r.U32(d.helpId) || !r.U32(d.exStyle) || !r.U32(d.style)) return false;
  } else if (!r.U32(d.style) || !r.U32(d.exStyle)) {
    return false;
  }
  if (!r.U16(count) || !r.I16(d.x) || !r.I16(d.y) || !r.I16(d.cx) || !r.I16(d.cy) ||
      !r.NameOrId(d.menu) || !r.NameOrId(d.windowClass) || !r.Text(d.title))
    return false;
  if (d.style & kDialogSetFont) {
    if (!r.U16(d.pointSize)) return false;
    if (d.extended && (!r.U16(d.weight) || !r.U8(d.italic) || !r.U8(d.charSet))) return false;
    if (!r.Text(d.typeface)) return false;
  }
  // Each item takes at least 18 bytes (24 extended) and its names: a count
  // the bytes cannot hold is damage, not a reason to reserve memory.
  const std::size_t least = d.extended ? 24 + 6 : 18 + 6;
  if (count > r.Remaining() / least + 1) return false;
  d.items.reserve(count);
  for (std::uint16_t i = 0; i < count; ++i) {
    DialogItemTemplate item;
    r.Align4();
    if (d.extended) {
      if (!r.U32(item.helpId) || !r.U32(item.exStyle) || !r.U32(item.style)) return false;
    } else if (!r.U32(item.style) || !r.U32(item.exStyle)) {
      return false;
    }
    if (!r.I16(item.x) || !r.I16(item.y) || !r.I16(item.cx) || !r.I16(item.cy)) return false;
    if (d.extended) {
      if (!r.U32(item.id)) return false;
    } else {
      std::uint16_t id = 0;
      if (!r.U16(id)) return false;
      item.id = id;
    }
    if (!r.NameOrId(item.windowClass) || !r.NameOrId(item.title) || !r.U16(item.extraSize) ||
        !r.Skip(item.extraSize))
      return false;
    d.items.push_back(std::move(item));
  }
  return true;
}

bool ParseDialogInit(std::string_view bytes, std::vector<DialogInitRecord> &records) {
  records.clear();
  Reader r(bytes);
  for (;;) {
    DialogInitRecord record;
    std::uint32_t length = 0;
    if (!r.U16(record.control)) return true;  // the end of the data closes it too
    if (record.control == 0) return true;
    if (!r.U16(record.message) || !r.U32(length) || r.Remaining() < length) return false;
    const std::string_view data = bytes.substr(r.At(), length);
    record.text.assign(data.substr(0, data.find('\0')));
    r.Skip(length);
    records.push_back(std::move(record));
  }
}

std::string WriteDialogInit(const std::vector<DialogInitRecord> &records) {
  std::string out;
  for (const DialogInitRecord &record : records) {
    PutU16(out, record.control);
    PutU16(out, record.message);
    PutU32(out, static_cast<std::uint32_t>(record.text.size() + 1));
    out += record.text;
    out.push_back('\0');
  }
  PutU16(out, 0);
  return out;
}

bool ParseMenuTemplate(std::string_view bytes, MenuTemplate &menu) {
  menu = MenuTemplate{};
  Reader r(bytes);
  std::uint16_t version = 0, offset = 0;
  if (!r.U16(version) || !r.U16(offset)) return false;
  if (version == 0) {
    if (!r.Skip(offset)) return false;
    return ParseMenuItems(r, menu.items, 0);
  }
  if (version != 1) return false;
  menu.extended = true;
  r.Seek(2);
  if (!r.Skip(2) || !r.Skip(offset)) return false;
  return ParseMenuExItems(r, menu.items, 0);
}

bool ParseStringBlock(std::string_view bytes, std::array<std::wstring, 16> &strings) {
  Reader r(bytes);
  for (std::wstring &s : strings) {
    std::uint16_t length = 0;
    s.clear();
    if (!r.U16(length) || r.Remaining() / 2 < length) return false;
    s.reserve(length);
    for (std::uint16_t i = 0; i < length; ++i) {
      std::uint16_t unit = 0;
      r.U16(unit);
      s.push_back(static_cast<wchar_t>(unit));
    }
  }
  return true;
}

bool ParseToolBar(std::string_view bytes, ToolBarTemplate &toolBar) {
  toolBar = ToolBarTemplate{};
  Reader r(bytes);
  std::uint16_t count = 0;
  if (!r.U16(toolBar.version) || !r.U16(toolBar.width) || !r.U16(toolBar.height) || !r.U16(count))
    return false;
  if (r.Remaining() / 2 < count) return false;
  for (std::uint16_t i = 0; i < count; ++i) {
    std::uint16_t id = 0;
    r.U16(id);
    toolBar.ids.push_back(id);
  }
  return true;
}

std::string WriteDialogTemplate(const DialogTemplate &d) {
  std::string out;
  PutU32(out, d.style);
  PutU32(out, d.exStyle);
  PutU16(out, static_cast<std::uint16_t>(d.items.size()));
  for (std::int16_t v : {d.x, d.y, d.cx, d.cy}) PutU16(out, static_cast<std::uint16_t>(v));
  PutName(out, d.menu);
  PutName(out, d.windowClass);
  PutText(out, d.title);
  if (d.style & kDialogSetFont) {
    PutU16(out, d.pointSize);
    PutText(out, d.typeface);
  }
  for (const DialogItemTemplate &item : d.items) {
    PadTo4(out);
    PutU32(out, item.style);
    PutU32(out, item.exStyle);
    for (std::int16_t v : {item.x, item.y, item.cx, item.cy}) PutU16(out, static_cast<std::uint16_t>(v));
    PutU16(out, static_cast<std::uint16_t>(item.id));
    PutName(out, item.windowClass);
    PutName(out, item.title);
    PutU16(out, 0);
  }
  return out;
}

std::string WriteMenuTemplate(const MenuTemplate &menu) {
  std::string out;
  PutU16(out, 0);
  PutU16(out, 0);
  WriteMenuItems(out, menu.items);
  return out;
}

std::string WriteStringBlock(const std::array<std::wstring, 16> &strings) {
  std::string out;
  for (const std::wstring &s : strings) {
    PutU16(out, static_cast<std::uint16_t>(s.size()));
    for (wchar_t c : s) PutU16(out, static_cast<std::uint16_t>(c));
  }
  return out;
}

}  // namespace tolv
