#include "page.h"

#include <fstream>

namespace gallery {
namespace {

constexpr char kSources[] =
#include "entry_sources.inc"
    ;

constexpr char kHead[] = R"(<!DOCTYPE html>
<html lang="en">
<meta charset="utf-8">
<title>KVDraw gallery</title>
<style>
body { font: 15px sans-serif; margin: 2em auto; max-width: 1500px; background: #f4f4f2; }
section { display: grid; grid-template-columns: 740px 1fr; gap: 1.5em; margin-bottom: 3em; }
h2 { grid-column: 1 / 3; margin: 0; font-size: 1.1em; }
pre { background: #fff; padding: 1em; overflow: auto; margin: 0; font-size: 12px; max-height: 520px; }
.picture { background: repeating-conic-gradient(#ccc 0 25%, #eee 0 50%) 0 0 / 20px 20px; }
.enlarged { width: 720px; height: 200px; overflow: hidden; margin-top: 0.5em; }
.enlarged img { image-rendering: pixelated; transform: scale(6); transform-origin: 40px 60px; }
</style>
<h1>KVDraw gallery</h1>
)";

std::string Escaped(const std::string& text) {
    std::string out;
    for (const char c : text) {
        switch (c) {
            case '&':
                out += "&amp;";
                break;
            case '<':
                out += "&lt;";
                break;
            default:
                out += c;
        }
    }
    return out;
}

}  // namespace

std::string SourceOf(const Entry& entry) {
    const std::string sources(kSources);
    const std::size_t begin = sources.find(std::string("static void ") + entry.name + "(");
    const std::size_t end = sources.find("\n}\n", begin);
    return begin == std::string::npos ? "" : sources.substr(begin, end + 3 - begin);
}

void Page::Add(const Entry& entry, CSize size) {
    const std::string name(entry.name);
    m_Body += "<section><h2>" + Escaped(entry.headline) + "</h2><div>";
    m_Body += "<img class=\"picture\" src=\"" + name + ".png\" width=\"" + std::to_string(size.cx) +
              "\" height=\"" + std::to_string(size.cy) + "\" alt=\"\">";
    m_Body += "<div class=\"enlarged picture\"><img src=\"" + name + ".png\" alt=\"\"></div>";
    m_Body += "<p><a href=\"" + name + ".tga\">" + name + ".tga</a></p></div>";
    m_Body += "<pre>" + Escaped(SourceOf(entry)) + "</pre></section>\n";
}

bool Page::Write(const std::string& file) const {
    std::ofstream out(file);
    out << kHead << m_Body << "</html>\n";
    return out.good();
}

}  // namespace gallery
