#include "sim/render/pictures/png.h"

#include <png.h>

#include <memory>
#include <stdexcept>

#include "sim/render/bitmap.h"

namespace sim {
namespace {

[[noreturn]] void Throw(png_structp, png_const_charp message) {
    throw std::runtime_error(message);
}

void Append(png_structp writer, png_bytep bytes, std::size_t count) {
    auto& file = *static_cast<std::string*>(png_get_io_ptr(writer));
    file.append(reinterpret_cast<const char*>(bytes), count);
}

// The library's structures, freed whatever happens.
class Writer {
  public:
    explicit Writer(std::string& file)
        : writer_(png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, Throw, nullptr)) {
        if (!writer_) throw std::bad_alloc();
        info_ = png_create_info_struct(writer_);
        if (!info_) {
            png_destroy_write_struct(&writer_, nullptr);
            throw std::bad_alloc();
        }
        png_set_write_fn(writer_, &file, Append, nullptr);
    }
    ~Writer() { png_destroy_write_struct(&writer_, &info_); }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    void Write(const Bitmap& bitmap) {
        const auto height = static_cast<png_uint_32>(bitmap.height);
        png_set_user_limits(writer_, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
        png_set_IHDR(writer_, info_, kPaperWidth, height, 1, PNG_COLOR_TYPE_GRAY,
                     PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
        static constexpr png_uint_32 kDotsPerMetre = 1000 * kDotsPerMillimetre;
        png_set_pHYs(writer_, info_, kDotsPerMetre, kDotsPerMetre, PNG_RESOLUTION_METER);
        png_write_info(writer_, info_);
        png_set_invert_mono(writer_);  // the picture's 1 is white
        for (std::size_t row = 0; row < height; ++row)
            png_write_row(writer_, &bitmap.rows[row * Bitmap::kRowBytes]);
        png_write_end(writer_, info_);
    }

  private:
    png_structp writer_;
    png_infop info_ = nullptr;
};

}  // namespace

std::string RenderPng(std::span<const PaperElement> paper) {
    std::string file;
    Writer(file).Write(RenderBitmap(paper));
    return file;
}

}  // namespace sim
