#include "App/CommandLine/DoctorReport.h"

#include "App/CommandLine/Terminal/ErrorReport.h"
#include "App/CommandLine/Terminal/TextColumns.h"
#include "Encoding/Precondition.h"
#include "Translation/Translate.h"

#include <algorithm>
#include <string_view>

namespace quillbox {
namespace {

using Health = ServiceReport::Health;
using Style = DoctorReport::Style;

constexpr std::size_t columns = 80;
constexpr std::size_t usualTextColumn = 18; // after the mark and the name of the service

/// What the whole page has in common.
struct Page {
    Style style;
    std::size_t textColumn; ///< further right where a language has longer names
};

Page pageFor(const DoctorReport::Findings& findings, Style style)
{
    Page page{style, usualTextColumn};
    for (const ServiceReport& report : findings.services) {
        const auto service = translate("Doctor", report.service.c_str());
        page.textColumn = std::max(page.textColumn, 4 + TextColumns::widthOf(service) + 2);
    }
    return page;
}

namespace Paint {
constexpr const char* none = "";
constexpr const char* bold = "\x1b[1m";
constexpr const char* faint = "\x1b[2m";
constexpr const char* red = "\x1b[31m";
constexpr const char* green = "\x1b[32m";
constexpr const char* yellow = "\x1b[33m";
} // namespace Paint

std::string painted(const std::string& text, std::string_view paint, Style style)
{
    return style.hasColors && !paint.empty() ? std::string(paint) + text + "\x1b[0m" : text;
}

/// How a service's paragraph begins, up to the column of the text.
std::string heading(const ServiceReport& report, const Page& page)
{
    struct Mark {
        const char* symbol;
        const char* letter; // where there are no symbols
        const char* paint;
    };
    const auto markFor = [](Health health) -> Mark {
        switch (health) {
        case Health::Works:
            return {"✓", "+", Paint::green};
        case Health::Limited:
            return {"–", "-", Paint::yellow};
        case Health::Missing:
            break;
        }
        return {"✗", "x", Paint::red};
    };
    const auto mark = markFor(report.health);
    const auto service = translate("Doctor", report.service.c_str());
    const auto gap = page.textColumn - 4 - TextColumns::widthOf(service);
    return "  " + painted(page.style.hasSymbols ? mark.symbol : mark.letter, mark.paint, page.style) + ' '
        + painted(service, Paint::bold, page.style) + std::string(gap, ' ');
}

/// `text` at the column of the text, the first line behind `lead`, which takes so many columns of it.
std::string paragraph(
    const std::string& lead, std::size_t leadWidth, const std::string& text, const char* paint, const Page& page)
{
    std::string result;
    for (const std::string& line :
        TextColumns::wrapped(ErrorReport::oneLine(text), columns - page.textColumn - leadWidth)) {
        const std::string start = std::string(page.textColumn + leadWidth, ' ');
        result += (result.empty() ? lead : start) + painted(line, paint, page.style) + '\n';
    }
    return result;
}

std::string describe(const ServiceReport& report, const Page& page)
{
    std::string text = paragraph(heading(report, page), 0, report.used, Paint::none, page);
    const std::string indent(page.textColumn, ' ');
    for (const std::string& found : report.found)
        text += paragraph(indent, 0, found, Paint::faint, page);
    for (const std::string& advice : report.advice)
        text += paragraph(indent + (page.style.hasSymbols ? "→ " : "> "), 2, advice, Paint::none, page);
    return text;
}

/// Every package that one of the services wants, once, with blanks between.
std::string packagesFor(const std::vector<ServiceReport>& services)
{
    std::vector<std::string> seen;
    std::string packages;
    for (const ServiceReport& service : services)
        for (const std::string& package : service.packages)
            if (std::ranges::find(seen, package) == seen.end()) {
                packages += (seen.empty() ? "" : " ") + package;
                seen.push_back(package);
            }
    return packages;
}

} // namespace

bool DoctorReport::canRecord(const Findings& findings)
{
    precondition(!findings.services.empty(), "the screen is one of the services");
    return findings.services.front().health != Health::Missing;
}

std::string DoctorReport::humanText(const Findings& findings, Style style)
{
    const auto windowSystem = translate("Doctor", findings.windowSystem.c_str());
    const auto desktop
        = findings.desktop.empty() ? windowSystem : ErrorReport::oneLine(findings.desktop) + ", " + windowSystem;
    std::string text = painted(translate("Doctor", "What this desktop has for Quillbox"), Paint::bold, style) + " ("
        + desktop + ")\n\n";
    const Page page = pageFor(findings, style);
    for (const ServiceReport& service : findings.services)
        text += describe(service, page);
    text += '\n';
    const auto packages = packagesFor(findings.services);
    if (!packages.empty()) {
        text += translate("Doctor", "What is missing comes, on Debian and Ubuntu, with") + '\n';
        const auto lines
            = TextColumns::wrapped("sudo apt install " + packages, columns - std::string_view("    \\ ").size());
        for (std::size_t at = 0; at < lines.size(); ++at) // a shell takes them for one
            text += (at == 0 ? "  " : "    ") + painted(lines[at], Paint::bold, style)
                + (at + 1 < lines.size() ? " \\\n" : "\n\n");
    }
    return text
        + (canRecord(findings) ? painted(translate("Doctor", "The screen can be recorded."), Paint::green, style)
                               : painted(translate("Doctor", "The screen can't be recorded."), Paint::red, style))
        + '\n';
}

} // namespace quillbox
