#include "patterns/PatternSvg.h"

#include <cstdio>

namespace tolv::sibling::patterns {

namespace {

std::string Number(double v) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.6g", v);
  return buffer;
}

// The pieces of a drawing, in the drawing's own units, one element a line.
void AppendPieces(std::string &svg, const Drawing &drawing, double dotRadius) {
  for (const Segment &s : drawing.segments) {
    svg += "<line x1=\"" + Number(s.x1) + "\" y1=\"" + Number(s.y1) + "\" x2=\"" + Number(s.x2) + "\" y2=\"" +
           Number(s.y2) + "\"/>\n";
  }
  for (const Dot &d : drawing.dots) {
    svg += "<circle cx=\"" + Number(d.x) + "\" cy=\"" + Number(d.y) + "\" r=\"" + Number(dotRadius) + "\"/>\n";
  }
}

}  // namespace

std::string XmlEscape(const std::string &text) {
  std::string out;
  for (char c : text) {
    switch (c) {
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '>': out += "&gt;"; break;
      case '"': out += "&quot;"; break;
      case '\'': out += "&apos;"; break;
      default:
        // Control characters have no place in XML 1.0.
        if (static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n') {
          out += ' ';
        } else {
          out += c;
        }
    }
  }
  return out;
}

std::string PatternSvg(const std::string &name, const std::vector<Family> &families, double extent, int size,
                       bool *truncated) {
  Drawing drawing = Draw(families, extent);
  if (truncated) *truncated = drawing.truncated;
  const std::string e = Number(extent);
  std::string svg = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  svg += "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + std::to_string(size) + "\" height=\"" +
         std::to_string(size) + "\" viewBox=\"0 0 " + e + " " + e + "\">\n";
  svg += "<title>" + XmlEscape(name) + "</title>\n";
  svg += "<rect x=\"0\" y=\"0\" width=\"" + e + "\" height=\"" + e +
         "\" fill=\"white\" stroke=\"#888\" stroke-width=\"1\" vector-effect=\"non-scaling-stroke\"/>\n";
  // Pattern units have y up; the picture's y runs down.
  svg += "<g id=\"pattern\" transform=\"matrix(1 0 0 -1 0 " + e +
         ")\" stroke=\"black\" stroke-width=\"1\" vector-effect=\"non-scaling-stroke\" fill=\"black\">\n";
  AppendPieces(svg, drawing, extent / 400);
  svg += "</g>\n</svg>\n";
  return svg;
}

std::string SheetSvg(const std::string &title, const std::vector<SheetEntry> &entries, int size) {
  const int columns = 6, label = 18, gap = 10;
  const int cell = size + gap, rowHeight = size + label + gap;
  const int rows = static_cast<int>((entries.size() + columns - 1) / columns);
  const int width = columns * cell + gap, height = rows * rowHeight + gap + 30;
  std::string svg = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  svg += "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + std::to_string(width) + "\" height=\"" +
         std::to_string(height) + "\" viewBox=\"0 0 " + std::to_string(width) + " " + std::to_string(height) +
         "\" font-family=\"sans-serif\" font-size=\"12\">\n";
  svg += "<text x=\"" + std::to_string(gap) + "\" y=\"20\" font-size=\"16\">" + XmlEscape(title) + "</text>\n";
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const SheetEntry &entry = entries[i];
    const int x = gap + static_cast<int>(i % columns) * cell;
    const int y = 30 + gap + static_cast<int>(i / columns) * rowHeight;
    const double extent = NaturalExtent(entry.families);
    const double scale = size / extent;
    Drawing drawing = Draw(entry.families, extent, 20000);
    svg += "<g class=\"tile\">\n";
    svg += "<rect x=\"" + std::to_string(x) + "\" y=\"" + std::to_string(y) + "\" width=\"" + std::to_string(size) +
           "\" height=\"" + std::to_string(size) + "\" fill=\"white\" stroke=\"#888\"/>\n";
    svg += "<svg x=\"" + std::to_string(x) + "\" y=\"" + std::to_string(y) + "\" width=\"" + std::to_string(size) +
           "\" height=\"" + std::to_string(size) + "\" viewBox=\"0 0 " + Number(extent) + " " + Number(extent) +
           "\">\n";
    svg += "<g transform=\"matrix(1 0 0 -1 0 " + Number(extent) + ")\" stroke=\"black\" stroke-width=\"" +
           Number(0.8 / scale) + "\" fill=\"black\">\n";
    AppendPieces(svg, drawing, 1.0 / scale);
    svg += "</g>\n</svg>\n";
    svg += "<text x=\"" + std::to_string(x) + "\" y=\"" + std::to_string(y + size + 14) + "\">" +
           XmlEscape(entry.name) + "</text>\n</g>\n";
  }
  svg += "</svg>\n";
  return svg;
}

}  // namespace tolv::sibling::patterns
