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

// A static function of the entries with its body; empty when there is none of that name.
std::string FunctionNamed(const std::string& sources, const std::string& name) {
    const std::size_t call = sources.find(" " + name + "(");
    const std::size_t begin = sources.rfind("\nstatic ", call);
    const std::size_t end = sources.find("\n}\n", begin);
    if (call == std::string::npos || begin == std::string::npos || end == std::string::npos) {
        return "";
    }
    return sources.substr(begin + 1, end + 2 - begin);
}

}  // namespace

std::string SourceOf(const Entry& entry) {
    const std::string sources(kSources);
    const std::string own = FunctionNamed(sources, entry.name);
    // The helpers that it calls stand before it.
    std::string helpers;
    std::size_t at = 0;
    while ((at = sources.find("\nstatic ", at)) != std::string::npos) {
        const std::size_t bracket = sources.find('(', at);
        const std::size_t begin = sources.rfind(' ', bracket) + 1;
        const std::string name = sources.substr(begin, bracket - begin);
        at = bracket;
        if (name != entry.name && own.find(" " + name + "(") != std::string::npos) {
            helpers += FunctionNamed(sources, name) + "\n";
        }
    }
    return own.empty() ? own : helpers + own;
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
