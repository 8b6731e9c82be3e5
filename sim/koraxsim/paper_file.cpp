#include "sim/koraxsim/paper_file.h"

#include <fmt/format.h>

#include <stdexcept>
#include <utility>

#include "sim/render/svg.h"
#include "sim/render/text.h"
#ifdef KORAXSIM_PICTURES
#include "sim/render/pictures/pdf.h"
#include "sim/render/pictures/png.h"
#endif

namespace koraxsim {
namespace {

constexpr std::pair<std::string_view, PaperFormat> kEndings[] = {
    {".txt", PaperFormat::Text},
    {".svg", PaperFormat::Svg},
#ifdef KORAXSIM_PICTURES
    {".png", PaperFormat::Png},
    {".pdf", PaperFormat::Pdf},
#endif
};

std::string Rendered(PaperFormat format, std::span<const sim::PaperElement> paper,
                     [[maybe_unused]] std::chrono::sys_seconds now) {
    switch (format) {
        case PaperFormat::Text:
            return sim::RenderText(paper);
        case PaperFormat::Svg:
            return sim::RenderSvg(paper);
#ifdef KORAXSIM_PICTURES
        case PaperFormat::Png:
            return sim::RenderPng(paper);
        case PaperFormat::Pdf:
            return sim::RenderPdf(paper, now);
#else
        case PaperFormat::Png:
        case PaperFormat::Pdf:
            break;
#endif
    }
    return {};
}

std::ofstream Begun(const std::string& name) {
    std::ofstream file(name, std::ios::binary | std::ios::trunc);
    if (!file) throw std::runtime_error(fmt::format("cannot write {}", name));
    return file;
}

void Append(std::ofstream& file, const std::string& name, const std::string& content) {
    if (!(file << content << std::flush))
        throw std::runtime_error(fmt::format("cannot write {}", name));
}

}  // namespace

PaperFormat PaperFormatOf(const std::string& file) {
    std::string known;
    for (const auto& [ending, format] : kEndings) {
        if (file.ends_with(ending)) return format;
        known += fmt::format("{}{}", known.empty() ? "" : ", ", ending);
    }
    throw std::runtime_error(
        fmt::format("paper cannot be written as {}: its name has to end in "
                    "one of {}",
                    file, known));
}

void WritePaper(const std::string& file, std::span<const sim::PaperElement> paper,
                std::chrono::sys_seconds now) {
    const std::string content = Rendered(PaperFormatOf(file), paper, now);
    std::ofstream stream = Begun(file);
    Append(stream, file, content);
}

PaperFile::PaperFile(std::string name)
    : name_(std::move(name)), format_(PaperFormatOf(name_)), text_(Begun(name_)) {
    if (format_ != PaperFormat::Text) text_.close();
}

void PaperFile::Add(std::span<const sim::PaperElement> printed) {
    if (format_ != PaperFormat::Text)
        sheet_.insert(sheet_.end(), printed.begin(), printed.end());
    else if (!printed.empty() && text_.good())
        Append(text_, name_, sim::RenderText(printed));
}

void PaperFile::Finish(std::chrono::sys_seconds now) {
    if (format_ != PaperFormat::Text) WritePaper(name_, sheet_, now);
}

}  // namespace koraxsim
