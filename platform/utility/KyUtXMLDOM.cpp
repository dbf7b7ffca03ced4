// The XML wrapper on pugixml. pugixml stays inside this file: the public
// headers hold only opaque implementation pointers.
//
// pugixml keeps UTF-8 text; the wrapper converts at its edge. Text going out
// is decoded straight into storage owned by the handle (broken UTF-8 goes
// through tolv::FromUtf8, so it reads as it always has); text coming in is
// encoded as tolv::ToUtf8 does.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <memory>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <string>
#include <string_view>
#include <system_error>
#include <unordered_set>
#include <utility>
#include <vector>

#include <pugixml.hpp>

#include "containers/KyArray.h"
#include "platform/utility/KyUtXMLDOMFile.h"
#include "platform/utility/KyUtXMLDOMNode.h"
#include "platform/utility/KyUtXMLDOMNodes.h"
#include "platform/windows/AtomicFile.h"
#include "platform/windows/PathMap.h"
#include "platform/windows/TextCodec.h"

namespace {

// Deeper than this, a saved file is written without indentation: indenting
// costs one tab per level on every line, which for a pathological nesting
// would grow the file quadratically.
constexpr std::size_t kMaxIndentedDepth = 256;

// Above this many attributes a duplicate check uses a hash set instead of
// comparing pairs.
constexpr std::size_t kLinearAttributeCheck = 16;

std::string Narrow(const wchar_t *text) { return text ? tolv::ToUtf8(text) : std::string(); }

// Whether the UTF-8 name pugixml holds is the wide `name` written in UTF-8,
// compared without building either form. Names are nearly always ASCII; the
// first character beyond it sends the compare to the converter, so the
// answer is the one the converted text would give.
bool SameName(const char *utf8, const wchar_t *name) {
  const char *a = utf8;
  const wchar_t *w = name;
  for (;; ++a, ++w) {
    const auto c = static_cast<unsigned char>(*a);
    const auto wc = static_cast<std::uint32_t>(*w);
    if (c >= 0x80 || wc >= 0x80) return tolv::ToUtf8(name) == utf8;
    if (c != wc) return false;
    if (c == 0) return true;
  }
}

// Decodes `n` bytes of UTF-8 into `out`, which has room for `n` characters,
// and gives how many it wrote; -1 when the bytes aren't well-formed UTF-8
// (the caller then takes tolv::FromUtf8, which decides what broken
// sequences become). Runs of ASCII, the bulk of any file, are copied in a
// tight loop.
std::ptrdiff_t DecodeWellFormedUtf8(const char *bytes, std::size_t n, wchar_t *out) {
  const auto *p = reinterpret_cast<const unsigned char *>(bytes);
  const auto *end = p + n;
  wchar_t *o = out;
  while (p < end) {
    while (p < end && *p < 0x80) *o++ = static_cast<wchar_t>(*p++);
    if (p == end) break;
    const unsigned char c = *p;
    int extra;
    std::uint32_t cp;
    if (c >= 0xC2 && c <= 0xDF) {
      extra = 1;
      cp = c & 0x1F;
    } else if (c >= 0xE0 && c <= 0xEF) {
      extra = 2;
      cp = c & 0x0F;
    } else if (c >= 0xF0 && c <= 0xF4) {
      extra = 3;
      cp = c & 0x07;
    } else {
      return -1;
    }
    if (end - p <= extra) return -1;
    for (int i = 1; i <= extra; ++i) {
      if ((p[i] & 0xC0) != 0x80) return -1;
      cp = (cp << 6) | (p[i] & 0x3F);
    }
    static constexpr std::uint32_t kMin[4] = {0, 0x80, 0x800, 0x10000};
    if (cp < kMin[extra] || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return -1;
    *o++ = static_cast<wchar_t>(cp);
    p += extra + 1;
  }
  return o - out;
}

// Wide text handed out by one handle. Each string is written once and never
// moves, so every pointer given out stays valid while the handle lives; the
// memory goes all at once with the handle. The first block lives inside the
// handle: reading an ordinary element needs no allocation for its text.
class TextArena {
 public:
  TextArena() : at_(first_), end_(first_ + kFirstBlock) {}
  TextArena(const TextArena &) = delete;
  TextArena &operator=(const TextArena &) = delete;

  // The UTF-8 text as a wide string of the arena.
  const wchar_t *Keep(const char *utf8) {
    if (utf8 == nullptr || *utf8 == '\0') return L"";
    return Keep(utf8, std::strlen(utf8));
  }

  const wchar_t *Keep(const char *utf8, std::size_t n) {
    if (n == 0) return L"";
    // A character takes at least one byte, so n + 1 characters are enough.
    wchar_t *room = Allocate(n + 1);
    const std::ptrdiff_t written = DecodeWellFormedUtf8(utf8, n, room);
    if (written >= 0) {
      room[written] = L'\0';
      Release(room + written + 1);
      return room;
    }
    const std::wstring wide = tolv::FromUtf8(std::string_view(utf8, n));
    // Broken bytes give one character each: the text still fits.
    std::copy(wide.begin(), wide.end(), room);
    room[wide.size()] = L'\0';
    Release(room + wide.size() + 1);
    return room;
  }

 private:
  static constexpr std::size_t kFirstBlock = 192;
  static constexpr std::size_t kBlock = 2048;

  wchar_t *Allocate(std::size_t n) {
    if (static_cast<std::size_t>(end_ - at_) < n) {
      const std::size_t size = std::max(n, kBlock);
      blocks_.push_back(std::make_unique<wchar_t[]>(size));
      at_ = blocks_.back().get();
      end_ = at_ + size;
    }
    wchar_t *room = at_;
    at_ += n;
    return room;
  }
  // Gives back the unused tail of the last allocation.
  void Release(wchar_t *usedEnd) { at_ = usedEnd; }

  wchar_t first_[kFirstBlock];
  wchar_t *at_;
  wchar_t *end_;
  std::vector<std::unique_ptr<wchar_t[]>> blocks_;
};

// The wide text as UTF-8 in `out`, as tolv::ToUtf8 gives it, reusing the
// string's storage.
void NarrowInto(const wchar_t *text, std::string &out) {
  out.clear();
  if (text == nullptr) return;
  const wchar_t *p = text;
  while (*p != 0 && static_cast<std::uint32_t>(*p) < 0x80) ++p;
  if (*p == 0) {
    out.assign(text, p);  // all ASCII
    return;
  }
  out = tolv::ToUtf8(text);
}

// The XML Name production, with every character from U+0080 up taken as a
// letter: good enough to keep the wrapper from writing a file it can't read
// back, without carrying the Unicode tables.
bool IsNameStart(wchar_t c) {
  return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z') || c == L'_' || c == L':' ||
         c >= 0x80;
}

bool IsNameChar(wchar_t c) {
  return IsNameStart(c) || (c >= L'0' && c <= L'9') || c == L'-' || c == L'.';
}

bool IsXmlName(const wchar_t *name) {
  if (!name || !IsNameStart(*name)) return false;
  for (const wchar_t *p = name + 1; *p; ++p)
    if (!IsNameChar(*p)) return false;
  return true;
}

bool IsTextNode(const pugi::xml_node &node) {
  return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

// Removes `top` with its whole subtree. pugixml frees a subtree by recursion,
// which a deeply nested document would turn into a stack overflow, so the
// leaves are taken off one at a time from the bottom up.
void RemoveSubtree(pugi::xml_node top) {
  pugi::xml_node current = top;
  for (;;) {
    if (pugi::xml_node child = current.last_child()) {
      current = child;
      continue;
    }
    pugi::xml_node parent = current.parent();
    const bool reachedTop = current == top;
    parent.remove_child(current);
    if (reachedTop) return;
    current = parent;
  }
}

// The pseudo-attributes of an XML declaration written as text, e.g.
// "version='1.0' encoding='utf-8'". Anything that doesn't fit the
// name=quoted-value form ends the scan.
std::vector<std::pair<std::wstring, std::wstring>> ParseDeclaration(const wchar_t *text) {
  std::vector<std::pair<std::wstring, std::wstring>> pairs;
  if (!text) return pairs;
  std::wstring_view s(text);
  auto isBlank = [](wchar_t c) { return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n'; };
  std::size_t i = 0;
  for (;;) {
    while (i < s.size() && isBlank(s[i])) ++i;
    std::size_t nameStart = i;
    while (i < s.size() && IsNameChar(s[i])) ++i;
    if (i == nameStart) break;
    std::wstring name(s.substr(nameStart, i - nameStart));
    while (i < s.size() && isBlank(s[i])) ++i;
    if (i >= s.size() || s[i] != L'=') break;
    ++i;
    while (i < s.size() && isBlank(s[i])) ++i;
    if (i >= s.size() || (s[i] != L'\'' && s[i] != L'"')) break;
    wchar_t quote = s[i++];
    std::size_t close = s.find(quote, i);
    if (close == std::wstring_view::npos) break;
    pairs.emplace_back(std::move(name), std::wstring(s.substr(i, close - i)));
    i = close + 1;
  }
  return pairs;
}

// "1." followed by digits, as XML 1.x versions are spelt.
bool IsXmlVersion(std::string_view v) {
  if (v.size() < 3 || v.substr(0, 2) != "1.") return false;
  for (char c : v.substr(2))
    if (c < '0' || c > '9') return false;
  return true;
}

// Puts the declaration in the form every saved file carries: first in the
// document, with the version (1.0 unless a valid one is there), the
// encoding the bytes really have, and "standalone" if it was given.
void NormalizeDeclaration(pugi::xml_document &doc) {
  pugi::xml_node decl = doc.first_child();
  if (decl.type() != pugi::node_declaration) decl = doc.prepend_child(pugi::node_declaration);
  std::string version = decl.attribute("version").value();
  std::string standalone = decl.attribute("standalone").value();
  if (!IsXmlVersion(version)) version = "1.0";
  while (pugi::xml_attribute a = decl.first_attribute()) decl.remove_attribute(a);
  decl.append_attribute("version").set_value(version.c_str());
  decl.append_attribute("encoding").set_value("utf-8");
  if (standalone == "yes" || standalone == "no")
    decl.append_attribute("standalone").set_value(standalone.c_str());
}

bool HasDuplicateAttribute(const pugi::xml_node &element) {
  std::size_t count = 0;
  for (pugi::xml_attribute a = element.first_attribute(); a; a = a.next_attribute()) ++count;
  if (count < 2) return false;
  if (count <= kLinearAttributeCheck) {
    for (pugi::xml_attribute a = element.first_attribute(); a; a = a.next_attribute())
      for (pugi::xml_attribute b = a.next_attribute(); b; b = b.next_attribute())
        if (std::string_view(a.name()) == b.name()) return true;
    return false;
  }
  std::unordered_set<std::string_view> seen;
  for (pugi::xml_attribute a = element.first_attribute(); a; a = a.next_attribute())
    if (!seen.insert(a.name()).second) return true;
  return false;
}

// What pugixml lets through but XML forbids: other than one element at the
// top, text outside it, a declaration that isn't the very first thing, and
// an attribute given twice. Walks the tree without recursion.
bool IsWellFormedTree(const pugi::xml_document &doc) {
  int elements = 0;
  bool first = true;
  for (pugi::xml_node n = doc.first_child(); n; n = n.next_sibling(), first = false) {
    switch (n.type()) {
      case pugi::node_element: ++elements; break;
      case pugi::node_pcdata:
      case pugi::node_cdata: return false;
      case pugi::node_declaration:
        if (!first) return false;
        break;
      default: break;
    }
  }
  if (elements != 1) return false;

  pugi::xml_node top = doc.document_element();
  pugi::xml_node n = top;
  while (n) {
    if (n.type() == pugi::node_element && HasDuplicateAttribute(n)) return false;
    if (pugi::xml_node child = n.first_child()) {
      n = child;
      continue;
    }
    while (n && n != top && !n.next_sibling()) n = n.parent();
    if (!n || n == top) break;
    n = n.next_sibling();
  }
  return true;
}

std::size_t MaxElementDepth(const pugi::xml_document &doc) {
  pugi::xml_node n = doc.first_child();
  if (!n) return 0;
  std::size_t depth = 1, deepest = 1;
  for (;;) {
    if (pugi::xml_node child = n.first_child()) {
      n = child;
      deepest = std::max(deepest, ++depth);
      continue;
    }
    while (!n.next_sibling()) {
      n = n.parent();
      if (--depth == 0) return deepest;
    }
    n = n.next_sibling();
  }
}

class StringWriter : public pugi::xml_writer {
 public:
  explicit StringWriter(std::string &out) : out_(out) {}
  void write(const void *data, std::size_t size) override {
    out_.append(static_cast<const char *>(data), size);
  }

 private:
  std::string &out_;
};

// The whole file in a buffer from pugixml's allocator, so that the document
// can parse it in place and own it: the text is then held once, not copied
// into a second buffer. The size is taken from the file, and the buffer
// grows should the file grow while it is read. Null when it can't be read.
char *ReadFileForPugixml(const std::string &posix, std::size_t &size) {
  const int fd = ::open(posix.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return nullptr;
  struct stat st;
  if (::fstat(fd, &st) != 0 || S_ISDIR(st.st_mode)) {
    ::close(fd);
    return nullptr;
  }
  auto allocate = pugi::get_memory_allocation_function();
  auto deallocate = pugi::get_memory_deallocation_function();
  // One byte more than the file, so that reaching the end needs no growth.
  std::size_t capacity = static_cast<std::size_t>(st.st_size > 0 ? st.st_size : 0) + 1;
  char *buffer = static_cast<char *>(allocate(capacity));
  std::size_t used = 0;
  for (;;) {
    if (buffer == nullptr) break;
    if (used == capacity) {
      char *bigger = static_cast<char *>(allocate(capacity * 2));
      if (bigger != nullptr) std::memcpy(bigger, buffer, used);
      deallocate(buffer);
      buffer = bigger;
      capacity *= 2;
      continue;
    }
    const ssize_t n = ::read(fd, buffer + used, capacity - used);
    if (n < 0) {
      if (errno == EINTR) continue;
      deallocate(buffer);
      buffer = nullptr;
      break;
    }
    if (n == 0) break;
    used += static_cast<std::size_t>(n);
  }
  ::close(fd);
  size = used;
  return buffer;
}

bool IsRegularFile(const std::string &posix) {
  struct stat st;
  return !posix.empty() && ::stat(posix.c_str(), &st) == 0 && S_ISREG(st.st_mode);
}

}  // namespace

// ---------------------------------------------------------------------------
// Implementation objects

struct KyUtXMLDOMNode::Impl {
  // Written out so that make_unique doesn't zero the arena's first block
  // before every use.
  Impl() {}

  pugi::xml_node node;
  // The attribute last reached by index. Attributes are only ever added at
  // the end or changed in place through this interface, so an index, once
  // found, keeps naming the same attribute, and walking on from the last
  // one reached makes reading them in order cost one step each.
  pugi::xml_attribute cursor;
  int cursorIndex = -1;
  // The name GetAttributeName gave last and its attribute: asking for that
  // name's value right after, as readers do, needs no search.
  const wchar_t *lastName = nullptr;
  pugi::xml_attribute lastNameAttribute;
  // Every text handed out.
  TextArena texts;
  // UTF-8 scratch for names and values on their way in.
  std::string scratch;

  pugi::xml_attribute AttributeAt(int index) {
    if (index < 0) return pugi::xml_attribute();
    if (cursorIndex < 0 || index < cursorIndex) {
      cursor = node.first_attribute();
      cursorIndex = 0;
    }
    while (cursor && cursorIndex < index) {
      cursor = cursor.next_attribute();
      ++cursorIndex;
    }
    if (!cursor) {
      cursorIndex = -1;
      return pugi::xml_attribute();
    }
    return cursor;
  }

  // The first attribute of that wide name, as pugixml's lookup by the
  // UTF-8 form finds it.
  pugi::xml_attribute Find(const wchar_t *name) {
    if (name == lastName && lastName != nullptr) return lastNameAttribute;
    for (pugi::xml_attribute a = node.first_attribute(); a; a = a.next_attribute())
      if (SameName(a.name(), name)) return a;
    return pugi::xml_attribute();
  }
};

struct KyUtXMLDOMNodes::Impl {
  std::vector<pugi::xml_node> nodes;
};

struct KyUtXMLDOMFile::Impl {
  std::unique_ptr<pugi::xml_document> doc;
  std::wstring path;
};

// Builds handles; the only place that sees the handles' insides.
struct KyUtXMLDOMAccess {
  static _auto_ptr<KyUtXMLDOMNode> Wrap(const pugi::xml_node &node) {
    if (!node) return _auto_ptr<KyUtXMLDOMNode>();
    auto impl = std::make_unique<KyUtXMLDOMNode::Impl>();
    impl->node = node;
    return _auto_ptr<KyUtXMLDOMNode>(new KyUtXMLDOMNode(std::move(impl)));
  }

  static _auto_ptr<KyUtXMLDOMNodes> WrapList(std::vector<pugi::xml_node> nodes) {
    auto impl = std::make_unique<KyUtXMLDOMNodes::Impl>();
    impl->nodes = std::move(nodes);
    return _auto_ptr<KyUtXMLDOMNodes>(new KyUtXMLDOMNodes(std::move(impl)));
  }
};

// ---------------------------------------------------------------------------
// KyUtXMLDOMNode

KyUtXMLDOMNode::KyUtXMLDOMNode(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
KyUtXMLDOMNode::~KyUtXMLDOMNode() = default;

const wchar_t *KyUtXMLDOMNode::GetNodeName() { return impl_->texts.Keep(impl_->node.name()); }

const wchar_t *KyUtXMLDOMNode::GetNodeValue() {
  // The usual element has one piece of text: it is decoded where it lies.
  pugi::xml_node only;
  int pieces = 0;
  for (pugi::xml_node c = impl_->node.first_child(); c; c = c.next_sibling())
    if (IsTextNode(c) && ++pieces == 1) only = c;
  if (pieces == 0) return L"";
  if (pieces == 1) return impl_->texts.Keep(only.value());
  std::string &text = impl_->scratch;
  text.clear();
  for (pugi::xml_node c = impl_->node.first_child(); c; c = c.next_sibling())
    if (IsTextNode(c)) text += c.value();
  return impl_->texts.Keep(text.data(), text.size());
}

bool KyUtXMLDOMNode::SetNodeValue(const wchar_t *text) {
  pugi::xml_node &node = impl_->node;
  if (node.type() != pugi::node_element) return false;
  for (pugi::xml_node c = node.first_child(); c;) {
    pugi::xml_node next = c.next_sibling();
    if (IsTextNode(c)) node.remove_child(c);
    c = next;
  }
  std::string &utf8 = impl_->scratch;
  NarrowInto(text, utf8);
  if (utf8.empty()) return true;
  pugi::xml_node pcdata = node.prepend_child(pugi::node_pcdata);
  return pcdata && pcdata.set_value(utf8.c_str());
}

bool KyUtXMLDOMNode::SetNodeValue(const int &value) {
  return SetNodeValue(std::to_wstring(value).c_str());
}

bool KyUtXMLDOMNode::SetNodeValue(const double &value) {
  // The shortest decimal form that reads back to exactly this value.
  char buf[64];
  std::to_chars_result r = std::to_chars(buf, buf + sizeof buf, value);
  if (r.ec != std::errc()) return false;
  return SetNodeValue(std::wstring(buf, r.ptr).c_str());
}

std::int32_t KyUtXMLDOMNode::GetAttributeNum() {
  std::int32_t count = 0;
  for (pugi::xml_attribute a = impl_->node.first_attribute(); a; a = a.next_attribute()) ++count;
  return count;
}

const wchar_t *KyUtXMLDOMNode::GetAttributeName(int index) {
  pugi::xml_attribute a = impl_->AttributeAt(index);
  if (!a) return L"";
  const wchar_t *name = impl_->texts.Keep(a.name());
  impl_->lastName = name;
  impl_->lastNameAttribute = a;
  return name;
}

const wchar_t *KyUtXMLDOMNode::GetAttributeValue(const wchar_t *name) {
  if (!name) return L"";
  pugi::xml_attribute a = impl_->Find(name);
  return a ? impl_->texts.Keep(a.value()) : L"";
}

bool KyUtXMLDOMNode::SetAttributeValue(const wchar_t *name, const wchar_t *value) {
  if (impl_->node.type() != pugi::node_element || !IsXmlName(name)) return false;
  pugi::xml_attribute a = impl_->Find(name);
  std::string &utf8 = impl_->scratch;
  if (!a) {
    NarrowInto(name, utf8);
    a = impl_->node.append_attribute(utf8.c_str());
  }
  if (!a) return false;
  NarrowInto(value, utf8);
  return a.set_value(utf8.data(), utf8.size());
}

bool KyUtXMLDOMNode::IsAttributeExist(const wchar_t *name) {
  return name && impl_->Find(name);
}

_auto_ptr<KyUtXMLDOMNode> KyUtXMLDOMNode::AppendNode(const wchar_t *tag, const wchar_t *text,
                                                     const wchar_t *attributeName,
                                                     const wchar_t *attributeValue) {
  // The same steps as the form with arrays, without building the arrays:
  // writers call this once per item.
  if (impl_->node.type() != pugi::node_element || !IsXmlName(tag)) return _auto_ptr<KyUtXMLDOMNode>();
  const bool hasAttribute = attributeName && *attributeName;
  if (hasAttribute && !IsXmlName(attributeName)) return _auto_ptr<KyUtXMLDOMNode>();
  NarrowInto(tag, impl_->scratch);
  pugi::xml_node child = impl_->node.append_child(impl_->scratch.c_str());
  if (!child) return _auto_ptr<KyUtXMLDOMNode>();
  _auto_ptr<KyUtXMLDOMNode> handle = KyUtXMLDOMAccess::Wrap(child);
  if (hasAttribute) handle->SetAttributeValue(attributeName, attributeValue);
  handle->SetNodeValue(text);
  return handle;
}

_auto_ptr<KyUtXMLDOMNode> KyUtXMLDOMNode::AppendNode(const wchar_t *tag,
                                                     const CStringArray &attributeNames,
                                                     const CStringArray &attributeValues,
                                                     const wchar_t *text) {
  if (impl_->node.type() != pugi::node_element || !IsXmlName(tag))
    return _auto_ptr<KyUtXMLDOMNode>();
  const int count = std::min(attributeNames.GetSize(), attributeValues.GetSize());
  for (int i = 0; i < count; ++i)
    if (!attributeNames[i].IsEmpty() && !IsXmlName(attributeNames[i]))
      return _auto_ptr<KyUtXMLDOMNode>();

  pugi::xml_node child = impl_->node.append_child(Narrow(tag).c_str());
  if (!child) return _auto_ptr<KyUtXMLDOMNode>();
  _auto_ptr<KyUtXMLDOMNode> handle = KyUtXMLDOMAccess::Wrap(child);
  for (int i = 0; i < count; ++i)
    if (!attributeNames[i].IsEmpty()) handle->SetAttributeValue(attributeNames[i], attributeValues[i]);
  handle->SetNodeValue(text);
  return handle;
}

bool KyUtXMLDOMNode::DeleteChildrenNodes() {
  pugi::xml_node &node = impl_->node;
  if (!node) return false;
  for (pugi::xml_node c = node.first_child(); c;) {
    pugi::xml_node next = c.next_sibling();
    if (c.type() == pugi::node_element) RemoveSubtree(c);
    c = next;
  }
  return true;
}

_auto_ptr<KyUtXMLDOMNodes> KyUtXMLDOMNode::GetChildrenNodes() {
  std::vector<pugi::xml_node> elements;
  for (pugi::xml_node c = impl_->node.first_child(); c; c = c.next_sibling())
    if (c.type() == pugi::node_element) elements.push_back(c);
  return KyUtXMLDOMAccess::WrapList(std::move(elements));
}

// ---------------------------------------------------------------------------
// KyUtXMLDOMNodes and KyUtXMLDOMNodeArray

KyUtXMLDOMNodes::KyUtXMLDOMNodes(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
KyUtXMLDOMNodes::~KyUtXMLDOMNodes() = default;

int KyUtXMLDOMNodes::GetCount() const { return static_cast<int>(impl_->nodes.size()); }

_auto_ptr<KyUtXMLDOMNode> KyUtXMLDOMNodes::GetItem(int index) const {
  if (index < 0 || index >= GetCount()) return _auto_ptr<KyUtXMLDOMNode>();
  return KyUtXMLDOMAccess::Wrap(impl_->nodes[static_cast<std::size_t>(index)]);
}

KyUtXMLDOMNodeArray::KyUtXMLDOMNodeArray() = default;
KyUtXMLDOMNodeArray::~KyUtXMLDOMNodeArray() = default;

KyUtXMLDOMNodeArray &KyUtXMLDOMNodeArray::operator=(_auto_ptr<KyUtXMLDOMNodes> &nodes) {
  nodes_ = nodes;
  return *this;
}

KyUtXMLDOMNodeArray &KyUtXMLDOMNodeArray::operator=(_auto_ptr<KyUtXMLDOMNodes> &&nodes) {
  nodes_ = nodes;
  return *this;
}

int KyUtXMLDOMNodeArray::GetCount() { return nodes_ ? nodes_->GetCount() : 0; }

_auto_ptr<KyUtXMLDOMNode> KyUtXMLDOMNodeArray::GetItem(int index) {
  return nodes_ ? nodes_->GetItem(index) : _auto_ptr<KyUtXMLDOMNode>();
}

// ---------------------------------------------------------------------------
// KyUtXMLDOMFile

KyUtXMLDOMFile::KyUtXMLDOMFile() : impl_(std::make_unique<Impl>()) {}
KyUtXMLDOMFile::~KyUtXMLDOMFile() = default;

bool KyUtXMLDOMFile::Open(const wchar_t *path) {
  if (!path || !*path) return false;
  std::size_t size = 0;
  char *bytes = ReadFileForPugixml(tolv::MapPath(path), size);
  if (bytes == nullptr) return false;

  // Comments, processing instructions and the document type are kept so
  // that they survive a save. Text made only of blanks is kept where it is
  // an element's whole content (a value of one space is a value), and
  // dropped between elements, where it is indentation. Parsing as a
  // fragment makes pugixml keep text outside the element, which XML forbids
  // and the check below rejects.
  const unsigned flags = pugi::parse_default | pugi::parse_declaration | pugi::parse_comments |
                         pugi::parse_pi | pugi::parse_doctype | pugi::parse_ws_pcdata_single |
                         pugi::parse_fragment;
  auto doc = std::make_unique<pugi::xml_document>();
  // The document takes the buffer over, whether the parse succeeds or not.
  pugi::xml_parse_result result = doc->load_buffer_inplace_own(bytes, size, flags, pugi::encoding_auto);
  if (!result || !IsWellFormedTree(*doc)) return false;

  impl_->doc = std::move(doc);
  impl_->path = path;
  return true;
}

bool KyUtXMLDOMFile::IsFileExist(const wchar_t *path) {
  return path && *path && IsRegularFile(tolv::MapPath(path));
}

bool KyUtXMLDOMFile::CreateNewXMLDoc(const wchar_t *path, const wchar_t *declaration,
                                     const wchar_t *rootName,
                                     const KyArray<std::pair<CString, CString>> &attributes) {
  if (!IsXmlName(rootName)) return false;
  const std::int32_t count = attributes.GetLength();
  for (std::int32_t i = 0; i < count; ++i)
    if (!IsXmlName(attributes[i].first)) return false;

  auto doc = std::make_unique<pugi::xml_document>();
  pugi::xml_node decl = doc->append_child(pugi::node_declaration);
  for (const auto &[name, value] : ParseDeclaration(declaration))
    if (name == L"version" || name == L"standalone")
      decl.append_attribute(Narrow(name.c_str()).c_str()).set_value(Narrow(value.c_str()).c_str());
  NormalizeDeclaration(*doc);

  pugi::xml_node root = doc->append_child(Narrow(rootName).c_str());
  if (!root) return false;
  for (std::int32_t i = 0; i < count; ++i) {
    std::string name = Narrow(attributes[i].first);
    pugi::xml_attribute a = root.attribute(name.c_str());
    if (!a) a = root.append_attribute(name.c_str());
    a.set_value(Narrow(attributes[i].second).c_str());
  }

  impl_->doc = std::move(doc);
  impl_->path = path ? path : L"";
  return true;
}

_auto_ptr<KyUtXMLDOMNode> KyUtXMLDOMFile::GetRoot() {
  if (!impl_->doc) return _auto_ptr<KyUtXMLDOMNode>();
  return KyUtXMLDOMAccess::Wrap(impl_->doc->document_element());
}

bool KyUtXMLDOMFile::Save(const wchar_t *path) {
  if (!impl_->doc) return false;
  const std::wstring target = path ? std::wstring(path) : impl_->path;
  if (target.empty()) return false;

  pugi::xml_document &doc = *impl_->doc;
  NormalizeDeclaration(doc);
  unsigned format = pugi::format_indent;
  if (MaxElementDepth(doc) > kMaxIndentedDepth) format = pugi::format_raw;
  std::string bytes;
  StringWriter writer(bytes);
  doc.save(writer, PUGIXML_TEXT("\t"), format, pugi::encoding_utf8);
  if (format == pugi::format_raw) bytes += '\n';
  return tolv::WriteFileAtomically(tolv::MapPath(target), bytes);
}

wchar_t *KyUtXMLDOMFile::GetXMLFileName() { return impl_->path.data(); }
