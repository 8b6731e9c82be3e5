// Writes a document of each kind as text and as pictures: pictures FOLDER
#include <cstdio>
#include <fstream>
#include <string>

#include "sim/documents.h"
#include "sim/render/pictures/pdf.h"
#include "sim/render/pictures/png.h"
#include "sim/render/svg.h"
#include "sim/render/text.h"

namespace {

bool Write(const std::string& name, const std::string& content) {
    std::ofstream file(name, std::ios::binary);
    if (file << content << std::flush) return true;
    std::fprintf(stderr, "cannot write %s\n", name.c_str());
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: pictures FOLDER\n");
        return 2;
    }
    bool written = true;
    for (const auto& [name, paper] : sim_test::Documents()) {
        const std::string path = std::string(argv[1]) + "/" + name;
        written = Write(path + ".txt", sim::RenderText(paper)) && written;
        written = Write(path + ".svg", sim::RenderSvg(paper)) && written;
        written = Write(path + ".png", sim::RenderPng(paper)) && written;
        written = Write(path + ".pdf", sim::RenderPdf(paper, {})) && written;
    }
    return written ? 0 : 1;
}
