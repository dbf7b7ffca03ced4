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

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/asan_interface.h>
#endif

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

#if defined(__SSE2__)
static_assert(sizeof(wchar_t) == 4);

// Widens 16 or 8 bytes at `p` into `o` when all are ASCII; false, having
// written nothing, otherwise.
inline bool Widen16(const unsigned char *p, wchar_t *o) {
  const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i *>(p));
  if (_mm_movemask_epi8(bytes) != 0) return false;
  const __m128i zero = _mm_setzero_si128();
  const __m128i low = _mm_unpacklo_epi8(bytes, zero);
  const __m128i high = _mm_unpackhi_epi8(bytes, zero);
  auto *wide = reinterpret_cast<__m128i *>(o);
  _mm_storeu_si128(wide, _mm_unpacklo_epi16(low, zero));
  _mm_storeu_si128(wide + 1, _mm_unpackhi_epi16(low, zero));
  _mm_storeu_si128(wide + 2, _mm_unpacklo_epi16(high, zero));
  _mm_storeu_si128(wide + 3, _mm_unpackhi_epi16(high, zero));
  return true;
}

inline bool Widen8(const unsigned char *p, wchar_t *o) {
  const __m128i bytes = _mm_loadl_epi64(reinterpret_cast<const __m128i *>(p));
  if ((_mm_movemask_epi8(bytes) & 0xFF) != 0) return false;
  const __m128i low = _mm_unpacklo_epi8(bytes, _mm_setzero_si128());
  auto *wide = reinterpret_cast<__m128i *>(o);
  _mm_storeu_si128(wide, _mm_unpacklo_epi16(low, _mm_setzero_si128()));
  _mm_storeu_si128(wide + 1, _mm_unpackhi_epi16(low, _mm_setzero_si128()));
  return true;
}
#endif

// Widens the leading ASCII of the `n` bytes at `p` into `o` in whole
// blocks, and gives how many bytes it took: all of them for an ASCII text
// of four bytes or more (its last block overlaps the one before), fewer
// where a block holds another byte; beyond eight bytes, none where the
// vector unit is missing.
inline std::size_t WidenLeadingAscii(const unsigned char *p, std::size_t n, wchar_t *o) {
  if (n < 8) {
    // Short names, as most are: the first and last four bytes, which
    // overlap below eight.
    if (n < 4) return 0;
    std::uint32_t head, tail;
    std::memcpy(&head, p, 4);
    std::memcpy(&tail, p + n - 4, 4);
    if (((head | tail) & 0x80808080u) != 0) return 0;
    for (std::size_t k = 0; k < 4; ++k) o[k] = static_cast<wchar_t>(p[k]);
    for (std::size_t k = n - 4; k < n; ++k) o[k] = static_cast<wchar_t>(p[k]);
    return n;
  }
#if defined(__SSE2__)
  std::size_t i = 0;
  for (; i + 16 <= n; i += 16)
    if (!Widen16(p + i, o + i)) return i;
  if (i + 8 <= n) {
    if (!Widen8(p + i, o + i)) return i;
    i += 8;
  }
  if (i < n && Widen8(p + n - 8, o + n - 8)) i = n;
  return i;
#else
  return 0;
#endif
}

// Decodes `n` bytes of UTF-8 into `out`, which has room for `n` characters,
// and gives how many it wrote; -1 when the bytes aren't well-formed UTF-8
// (the caller then takes tolv::FromUtf8, which decides what broken
// sequences become). ASCII, the bulk of any file, is widened in blocks up
// to the first other byte; from there on it goes byte by byte.
std::ptrdiff_t DecodeWellFormedUtf8(const char *bytes, std::size_t n, wchar_t *out) {
  const auto *p = reinterpret_cast<const unsigned char *>(bytes);
  const auto *end = p + n;
  const std::size_t ascii = WidenLeadingAscii(p, n, out);
  p += ascii;
  wchar_t *o = out + ascii;
  while (p < end) {
    while (p < end && *p < 0x80) *o++ = static_cast<wchar_t>(*p++);
    if (p == end) break;
    const unsigned char c = *p;
    std::uint32_t cp;
    // Three bytes first: the CJK text of the packages.
    if (c >= 0xE0 && c <= 0xEF) {
      if (end - p < 3 || (p[1] & 0xC0) != 0x80 || (p[2] & 0xC0) != 0x80) return -1;
      cp = (static_cast<std::uint32_t>(c & 0x0F) << 12) | (static_cast<std::uint32_t>(p[1] & 0x3F) << 6) |
           (p[2] & 0x3Fu);
      if (cp < 0x800 || (cp >= 0xD800 && cp <= 0xDFFF)) return -1;
      p += 3;
    } else if (c >= 0xC2 && c <= 0xDF) {
      if (end - p < 2 || (p[1] & 0xC0) != 0x80) return -1;
      cp = (static_cast<std::uint32_t>(c & 0x1F) << 6) | (p[1] & 0x3Fu);
      p += 2;
    } else if (c >= 0xF0 && c <= 0xF4) {
      if (end - p < 4 || (p[1] & 0xC0) != 0x80 || (p[2] & 0xC0) != 0x80 || (p[3] & 0xC0) != 0x80) return -1;
      cp = (static_cast<std::uint32_t>(c & 0x07) << 18) | (static_cast<std::uint32_t>(p[1] & 0x3F) << 12) |
           (static_cast<std::uint32_t>(p[2] & 0x3F) << 6) | (p[3] & 0x3Fu);
      if (cp < 0x10000 || cp > 0x10FFFF) return -1;
      p += 4;
    } else {
      return -1;
    }
    *o++ = static_cast<wchar_t>(cp);
  }
  return o - out;
}

// Wide text handed out by one handle. Each string is written once and never
// moves, so every pointer given out stays valid while the handle lives; the
// memory is taken back all at once when the handle goes. The first block
// lives inside the handle, so reading an ordinary element needs no
// allocation for its text. A handle that needs more takes blocks of its
// own; when its memory is kept for the next handle, one standard block stays
// with it, so that long texts cost no allocation the next time either.
class TextArena {
 public:
  TextArena() : at_(first_), end_(first_ + kFirstBlock) {}
  ~TextArena() {
    FreeBlocks(used_);
    FreeBlocks(spare_);
  }
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

  // Forgets every text: the arena is as new, with one standard block kept.
  void Clear() {
    while (used_ != nullptr) {
      Block *block = used_;
      used_ = block->next;
      if (spare_ == nullptr && block->size == kBlock) {
        block->next = nullptr;
        spare_ = block;
      } else {
        ::operator delete(block);
      }
    }
    at_ = first_;
    end_ = first_ + kFirstBlock;
  }

 private:
  static constexpr std::size_t kFirstBlock = 224;
  static constexpr std::size_t kBlock = 512;

  // A block's characters follow its header.
  struct Block {
    Block *next;
    std::size_t size;
    wchar_t *text() { return reinterpret_cast<wchar_t *>(this + 1); }
  };
  static_assert(sizeof(Block) % alignof(wchar_t) == 0);

  static void FreeBlocks(Block *block) {
    while (block != nullptr) {
      Block *next = block->next;
      ::operator delete(block);
      block = next;
    }
  }

  wchar_t *Allocate(std::size_t n) {
    if (static_cast<std::size_t>(end_ - at_) < n) {
      Block *block;
      if (n <= kBlock && spare_ != nullptr) {
        block = spare_;
        spare_ = nullptr;
      } else {
        const std::size_t size = std::max(n, kBlock);
        block = static_cast<Block *>(::operator new(sizeof(Block) + size * sizeof(wchar_t)));
        block->size = size;
      }
      block->next = used_;
      used_ = block;
      at_ = block->text();
      end_ = at_ + block->size;
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
  Block *used_ = nullptr;
  Block *spare_ = nullptr;
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

bool SameUtf8(const char *a, const char *b) { return a[0] == b[0] && std::strcmp(a, b) == 0; }

// Each element is visited once, its attribute names gathered as it goes:
// this runs on every element of every file opened.
bool HasDuplicateAttribute(const pugi::xml_node &element) {
  const char *names[kLinearAttributeCheck];
  std::size_t count = 0;
  pugi::xml_attribute a = element.first_attribute();
  for (; a && count < kLinearAttributeCheck; a = a.next_attribute()) {
    const char *name = a.name();
    for (std::size_t i = 0; i < count; ++i)
      if (SameUtf8(names[i], name)) return true;
    names[count++] = name;
  }
  if (!a) return false;
  std::unordered_set<std::string_view> seen(names, names + count);
  for (; a; a = a.next_attribute())
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

  const pugi::xml_node top = doc.document_element();
  pugi::xml_node n = top;
  for (;;) {
    if (n.type() == pugi::node_element) {
      if (HasDuplicateAttribute(n)) return false;
      // Only elements have children.
      if (pugi::xml_node child = n.first_child()) {
        n = child;
        continue;
      }
    }
    for (;;) {
      if (n == top) return true;
      if (pugi::xml_node next = n.next_sibling()) {
        n = next;
        break;
      }
      n = n.parent();
    }
  }
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
  // Written out so that a new Impl doesn't zero the arena's first block.
  Impl() {}

  // Back to the state of a new Impl, keeping the memory it has, so that
  // the next handle can take it over.
  void Reset() {
    node = pugi::xml_node();
    cursor = pugi::xml_attribute();
    cursorIndex = -1;
    lastName = nullptr;
    lastNameAttribute = pugi::xml_attribute();
    texts.Clear();
    if (scratch.capacity() > kKeptScratch) std::string().swap(scratch);
  }
  // Scratch beyond this isn't worth keeping for the next handle.
  static constexpr std::size_t kKeptScratch = 1024;

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
//
// A reader makes and drops a handle for every element, so each thread keeps
// the memory of a few dropped handles (the handle object and its Impl, with
// the arena's blocks) for the next ones. The cache is bounded; past it, and
// once the thread is ending, memory is freed as usual. A handle dropped on
// another thread than its own simply joins that thread's cache: the memory
// is ordinary heap memory either way.
struct KyUtXMLDOMAccess {
  using Impl = KyUtXMLDOMNode::Impl;

  static _auto_ptr<KyUtXMLDOMNode> Wrap(const pugi::xml_node &node) {
    if (!node) return _auto_ptr<KyUtXMLDOMNode>();
    std::unique_ptr<Impl> impl(TakeImpl());
    impl->node = node;
    return _auto_ptr<KyUtXMLDOMNode>(new KyUtXMLDOMNode(std::move(impl)));
  }

  static _auto_ptr<KyUtXMLDOMNodes> WrapList(std::vector<pugi::xml_node> nodes) {
    auto impl = std::make_unique<KyUtXMLDOMNodes::Impl>();
    impl->nodes = std::move(nodes);
    return _auto_ptr<KyUtXMLDOMNodes>(new KyUtXMLDOMNodes(std::move(impl)));
  }

  static Impl *TakeImpl() {
    Cache &cache = cache_;
    if (cache.impls == 0) return new Impl;
    Impl *impl = cache.impl[--cache.impls];
    Unpoison(impl, sizeof(Impl));
    return impl;
  }

  static void GiveImpl(Impl *impl) {
    if (impl == nullptr) return;
    Cache &cache = cache_;
    if (cache.impls < kKept && Enlisted(cache)) {
      impl->Reset();
      Poison(impl, sizeof(Impl));
      cache.impl[cache.impls++] = impl;
      return;
    }
    delete impl;
  }

  // Handle objects: their constructor is private to this file, so every one
  // has exactly the size of the class.
  static void *TakeHandle(std::size_t size) {
    Cache &cache = cache_;
    if (cache.handles == 0 || size != sizeof(KyUtXMLDOMNode)) return ::operator new(size);
    void *memory = cache.handle[--cache.handles];
    Unpoison(memory, sizeof(KyUtXMLDOMNode));
    return memory;
  }

  static void GiveHandle(void *memory) {
    if (memory == nullptr) return;
    Cache &cache = cache_;
    if (cache.handles < kKept && Enlisted(cache)) {
      Poison(memory, sizeof(KyUtXMLDOMNode));
      cache.handle[cache.handles++] = memory;
      return;
    }
    ::operator delete(memory);
  }

 private:
  // Enough for the handles a reader holds at once while it walks a tree.
  static constexpr int kKept = 32;

  enum class State : unsigned char { kUnused, kEnlisted, kEnded };

  // Plain data, so that the thread-local cache needs neither a constructor
  // nor a destructor of its own: reaching it costs nothing more than its
  // address, and it can be read safely even while the thread ends.
  struct Cache {
    Impl *impl[kKept];
    void *handle[kKept];
    int impls;
    int handles;
    State state;
  };

  // Frees what the thread kept when the thread ends (for the thread that
  // exits the process, at exit). Made the first time the thread keeps
  // anything, so threads that never read XML register nothing.
  struct Reaper {
    ~Reaper() {
      Cache &cache = cache_;
      cache.state = State::kEnded;
      while (cache.impls > 0) {
        Impl *impl = cache.impl[--cache.impls];
        Unpoison(impl, sizeof(Impl));
        delete impl;
      }
      while (cache.handles > 0) {
        void *memory = cache.handle[--cache.handles];
        Unpoison(memory, sizeof(KyUtXMLDOMNode));
        ::operator delete(memory);
      }
    }
  };

  // Whether the thread may keep memory: not once its cache has been freed,
  // as when a handle held by another thread-local object goes after it.
  static bool Enlisted(Cache &cache) {
    if (cache.state == State::kUnused) {
      static thread_local Reaper reaper;
      (void)reaper;
      cache.state = State::kEnlisted;
    }
    return cache.state == State::kEnlisted;
  }

  // Kept memory is marked unusable for the address sanitizer, so that a
  // handle used after it was deleted is still caught.
  static void Poison([[maybe_unused]] void *memory, [[maybe_unused]] std::size_t size) {
#if defined(__SANITIZE_ADDRESS__)
    ASAN_POISON_MEMORY_REGION(memory, size);
#endif
  }
  static void Unpoison([[maybe_unused]] void *memory, [[maybe_unused]] std::size_t size) {
#if defined(__SANITIZE_ADDRESS__)
    ASAN_UNPOISON_MEMORY_REGION(memory, size);
#endif
  }

  static thread_local Cache cache_;
};

thread_local KyUtXMLDOMAccess::Cache KyUtXMLDOMAccess::cache_{};

// ---------------------------------------------------------------------------
// KyUtXMLDOMNode

KyUtXMLDOMNode::KyUtXMLDOMNode(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
KyUtXMLDOMNode::~KyUtXMLDOMNode() { KyUtXMLDOMAccess::GiveImpl(impl_.release()); }

void *KyUtXMLDOMNode::operator new(std::size_t size) { return KyUtXMLDOMAccess::TakeHandle(size); }
void KyUtXMLDOMNode::operator delete(void *memory) noexcept { KyUtXMLDOMAccess::GiveHandle(memory); }

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
