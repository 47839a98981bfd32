#include "lnk_format.h"

#include <cstring>

namespace ferrow::lnk {
namespace {

constexpr uint32_t kHeaderSize = 0x4C;
constexpr unsigned char kLinkClsid[16] = {0x01, 0x14, 0x02, 0x00, 0x00, 0x00, 0x00, 0x00,
                                          0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46};
enum LinkFlags : uint32_t {
  kHasIdList = 0x01,
  kHasLinkInfo = 0x02,
  kHasName = 0x04,
  kHasRelativePath = 0x08,
  kHasWorkingDir = 0x10,
  kHasArguments = 0x20,
  kHasIconLocation = 0x40,
  kIsUnicode = 0x80,
};
enum LinkInfoFlags : uint32_t { kVolumeIdAndLocalBasePath = 0x1, kNetworkRelativeLink = 0x2 };
constexpr uint32_t kDriveFixed = 3;
constexpr uint32_t kAttributeDirectory = 0x10;
constexpr uint32_t kAttributeArchive = 0x20;

// Bounds-checked little-endian reads from one block of the file.
class Bytes {
 public:
  Bytes(const std::string& data, size_t begin, size_t end) : d_(data), begin_(begin), end_(end) {}
  bool Has(size_t at, size_t n) const { return at >= begin_ && at <= end_ && n <= end_ - at; }
  bool U16(size_t at, uint32_t& v) const {
    if (!Has(at, 2)) return false;
    v = Byte(at) | Byte(at + 1) << 8;
    return true;
  }
  bool U32(size_t at, uint32_t& v) const {
    if (!Has(at, 4)) return false;
    v = Byte(at) | Byte(at + 1) << 8 | Byte(at + 2) << 16 | static_cast<uint32_t>(Byte(at + 3)) << 24;
    return true;
  }
  // A NUL-terminated 8-bit string starting at `at`, within the block.
  bool CString(size_t at, std::string& out) const {
    if (!Has(at, 1)) return false;
    size_t stop = at;
    while (stop < end_ && d_[stop] != '\0') ++stop;
    if (stop == end_) return false;
    out = d_.substr(at, stop - at);
    return true;
  }
  // A NUL-terminated UTF-16 string starting at `at`, within the block.
  bool WString(size_t at, std::u16string& out) const {
    out.clear();
    for (uint32_t c = 0; U16(at, c); at += 2) {
      if (c == 0) return true;
      out += static_cast<char16_t>(c);
    }
    return false;
  }

 private:
  uint32_t Byte(size_t at) const { return static_cast<unsigned char>(d_[at]); }
  const std::string& d_;
  size_t begin_, end_;
};

std::string PreferUnicode(const Bytes& b, size_t base, uint32_t offset, uint32_t unicode_offset,
                          bool& utf8) {
  std::u16string wide;
  if (unicode_offset && b.WString(base + unicode_offset, wide)) {
    utf8 = true;
    return Utf16ToUtf8(wide);
  }
  std::string narrow;
  utf8 = false;
  if (offset && b.CString(base + offset, narrow)) return narrow;
  return {};
}

// The target path from a LinkInfo block at `at`; `size` is set to its length.
std::string ReadLinkInfo(const std::string& data, size_t at, uint32_t& size, bool& utf8) {
  Bytes all(data, 0, data.size());
  if (!all.U32(at, size) || size < 0x1C || !all.Has(at, size)) return {};
  Bytes info(data, at, at + size);
  uint32_t header = 0, flags = 0, local = 0, network = 0, suffix = 0, local_w = 0, suffix_w = 0;
  info.U32(at + 4, header);
  info.U32(at + 8, flags);
  info.U32(at + 0x10, local);
  info.U32(at + 0x14, network);
  info.U32(at + 0x18, suffix);
  if (header >= 0x24) {
    info.U32(at + 0x1C, local_w);
    info.U32(at + 0x20, suffix_w);
  }
  bool suffix_utf8 = false;
  std::string tail = PreferUnicode(info, at, suffix, suffix_w, suffix_utf8);
  std::string base;
  if (flags & kVolumeIdAndLocalBasePath) {
    base = PreferUnicode(info, at, local, local_w, utf8);
    if (!base.empty() && !tail.empty() && base.back() != '\\') base += '\\';
  } else if ((flags & kNetworkRelativeLink) && network) {
    size_t link = at + network;
    uint32_t net_name = 0, net_name_w = 0;
    if (info.U32(link + 8, net_name) && net_name > 0x14) info.U32(link + 0x14, net_name_w);
    base = PreferUnicode(info, link, net_name, net_name_w, utf8);
    if (!base.empty() && !tail.empty()) base += '\\';
  }
  if (base.empty()) return {};
  return base + tail;
}

void Put16(std::string& out, uint32_t v) {
  out += static_cast<char>(v & 0xFF);
  out += static_cast<char>((v >> 8) & 0xFF);
}

void Put32(std::string& out, uint32_t v) {
  Put16(out, v & 0xFFFF);
  Put16(out, v >> 16);
}

void PutStringData(std::string& out, const std::string& text) {
  std::u16string wide = Utf8ToUtf16(text);
  Put16(out, static_cast<uint32_t>(wide.size()));
  for (char16_t c : wide) Put16(out, c);
}

}  // namespace

LinkTarget ReadLink(const std::string& data, const std::string& link_folder) {
  LinkTarget result;
  Bytes all(data, 0, data.size());
  uint32_t header = 0, flags = 0;
  if (!all.U32(0, header) || header != kHeaderSize || !all.Has(0, kHeaderSize)) return result;
  if (std::memcmp(data.data() + 4, kLinkClsid, sizeof kLinkClsid) != 0) return result;
  all.U32(0x14, flags);
  size_t at = kHeaderSize;
  if (flags & kHasIdList) {
    uint32_t id_list = 0;
    if (!all.U16(at, id_list) || !all.Has(at + 2, id_list)) return result;
    at += 2 + id_list;
  }
  if (flags & kHasLinkInfo) {
    uint32_t size = 0;
    result.path = ReadLinkInfo(data, at, size, result.path_is_utf8);
    if (size == 0 || !all.Has(at, size)) return LinkTarget{};
    at += size;
  }
  // The strings, in their fixed order; each a count and that many characters.
  const bool unicode = flags & kIsUnicode;
  std::string relative;
  for (uint32_t field : {kHasName, kHasRelativePath, kHasWorkingDir, kHasArguments, kHasIconLocation}) {
    if (!(flags & field)) continue;
    uint32_t count = 0;
    const size_t width = unicode ? 2 : 1;
    if (!all.U16(at, count) || !all.Has(at + 2, count * width)) return LinkTarget{};
    std::string text;
    if (unicode) {
      std::u16string wide;
      for (uint32_t i = 0, c = 0; i < count && all.U16(at + 2 + 2 * i, c); ++i)
        wide += static_cast<char16_t>(c);
      text = Utf16ToUtf8(wide);
    } else {
      text = data.substr(at + 2, count);
    }
    at += 2 + count * width;
    if (field == kHasRelativePath) relative = text;
    if (field == kHasWorkingDir) result.working_folder = text;
  }
  // Extra data blocks, each with its size, up to the terminal block: a file
  // cut short anywhere is no shortcut.
  for (uint32_t block = 0;; at += block) {
    if (!all.U32(at, block)) return LinkTarget{};
    if (block < 4) break;
    if (!all.Has(at, block)) return LinkTarget{};
  }
  if (result.path.empty() && !relative.empty()) {
    result.path = link_folder.empty() ? relative : link_folder + "/" + relative;
    result.path_is_utf8 = unicode;
  }
  return result;
}

std::string WriteLink(const NewLink& link) {
  uint32_t flags = kHasLinkInfo | kIsUnicode;
  if (!link.description.empty()) flags |= kHasName;
  if (!link.working_folder.empty()) flags |= kHasWorkingDir;

  std::string out;
  Put32(out, kHeaderSize);
  out.append(reinterpret_cast<const char*>(kLinkClsid), sizeof kLinkClsid);
  Put32(out, flags);
  Put32(out, link.target_is_folder ? kAttributeDirectory : kAttributeArchive);
  out.append(24, '\0');  // creation, access and write times: unknown
  Put32(out, link.target_size);
  Put32(out, 0);  // icon index
  Put32(out, static_cast<uint32_t>(link.show_command));
  out.append(2 + 2 + 4 + 4, '\0');  // hot key and reserved fields

  // LinkInfo: a fixed-drive volume without label, and the local path.
  std::string volume;
  Put32(volume, 0x11);
  Put32(volume, kDriveFixed);
  Put32(volume, 0);     // serial number
  Put32(volume, 0x10);  // label offset
  volume += '\0';
  const uint32_t info_header = 0x1C;
  const uint32_t local = info_header + static_cast<uint32_t>(volume.size());
  const uint32_t suffix = local + static_cast<uint32_t>(link.target.size()) + 1;
  const uint32_t info_size = suffix + 1;
  Put32(out, info_size);
  Put32(out, info_header);
  Put32(out, kVolumeIdAndLocalBasePath);
  Put32(out, info_header);  // volume id offset
  Put32(out, local);
  Put32(out, 0);  // no network link
  Put32(out, suffix);
  out += volume;
  out += link.target;
  out += '\0';
  out += '\0';  // empty common path suffix

  if (flags & kHasName) PutStringData(out, link.description);
  if (flags & kHasWorkingDir) PutStringData(out, link.working_folder);
  Put32(out, 0);  // terminal block: no extra data
  return out;
}

std::string Utf16ToUtf8(const std::u16string& text) {
  std::string out;
  for (size_t i = 0; i < text.size(); ++i) {
    uint32_t c = text[i];
    if (c >= 0xD800 && c < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00 &&
        text[i + 1] < 0xE000) {
      c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00);
    } else if (c >= 0xD800 && c < 0xE000) {
      c = 0xFFFD;  // a lone surrogate
    }
    if (c < 0x80) {
      out += static_cast<char>(c);
    } else if (c < 0x800) {
      out += static_cast<char>(0xC0 | c >> 6);
      out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
      out += static_cast<char>(0xE0 | c >> 12);
      out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
      out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
      out += static_cast<char>(0xF0 | c >> 18);
      out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
      out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
      out += static_cast<char>(0x80 | (c & 0x3F));
    }
  }
  return out;
}

std::u16string Utf8ToUtf16(const std::string& text) {
  std::u16string out;
  for (size_t i = 0; i < text.size();) {
    unsigned char b = static_cast<unsigned char>(text[i]);
    int extra = b < 0x80 ? 0 : (b >> 5) == 6 ? 1 : (b >> 4) == 14 ? 2 : (b >> 3) == 30 ? 3 : -1;
    uint32_t c = extra == 0 ? b : extra == 1 ? (b & 0x1F) : extra == 2 ? (b & 0x0F) : (b & 0x07);
    bool ok = extra >= 0 && i + static_cast<size_t>(extra) < text.size() + (extra == 0 ? 1 : 0);
    for (int k = 1; ok && k <= extra; ++k) {
      unsigned char next = static_cast<unsigned char>(text[i + static_cast<size_t>(k)]);
      ok = (next & 0xC0) == 0x80;
      c = c << 6 | (next & 0x3F);
    }
    if (!ok) {
      out += u'\uFFFD';  // not UTF-8: one replacement per byte
      ++i;
      continue;
    }
    i += static_cast<size_t>(extra) + 1;
    if (c >= 0x10000) {
      c -= 0x10000;
      out += static_cast<char16_t>(0xD800 + (c >> 10));
      out += static_cast<char16_t>(0xDC00 + (c & 0x3FF));
    } else {
      out += static_cast<char16_t>(c);
    }
  }
  return out;
}

}  // namespace ferrow::lnk
