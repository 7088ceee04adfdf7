#include "Graphics/JpegFile.h"

#include <csetjmp>
#include <cstdio>

#include <jpeglib.h>

namespace varn {

namespace {

// libjpeg's own handlers print and exit; these go back to the one setjmp of each step.
struct ErrorManager
{
    jpeg_error_mgr base;
    std::jmp_buf back;
};

[[noreturn]] void fail(j_common_ptr decoder)
{
    std::longjmp(reinterpret_cast<ErrorManager*>(decoder->err)->back, 1);
}

// A warning is a picture that the library would patch up; cut or damaged data is refused instead.
void refuseWarning(j_common_ptr decoder, int level)
{
    if (level < 0)
        fail(decoder);
}

void printNothing(j_common_ptr) {}

struct Decoder
{
    jpeg_decompress_struct jpeg{};
    ErrorManager errors{};

    Decoder()
    {
        jpeg.err = jpeg_std_error(&errors.base);
        errors.base.error_exit = fail;
        errors.base.emit_message = refuseWarning;
        errors.base.output_message = printNothing;
    }
    ~Decoder() { jpeg_destroy_decompress(&jpeg); }
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;

    // The steps hold nothing that a longjmp would leave behind.
    bool readHeader(ByteSpan bytes)
    {
        if (setjmp(errors.back))
            return false;
        jpeg_create_decompress(&jpeg);
        jpeg_mem_src(&jpeg, reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
        jpeg_read_header(&jpeg, TRUE);
        jpeg.out_color_space = JCS_EXT_BGRA;
        return true;
    }

    bool readRows(std::uint8_t* bits, std::size_t stride)
    {
        if (setjmp(errors.back))
            return false;
        jpeg_start_decompress(&jpeg);
        while (jpeg.output_scanline < jpeg.output_height) {
            JSAMPROW row = bits + jpeg.output_scanline * stride;
            jpeg_read_scanlines(&jpeg, &row, 1);
        }
        jpeg_finish_decompress(&jpeg);
        return true;
    }
};

} // namespace

void readJpeg(ByteSpan bytes, WStringView path, Bitmap& into)
{
    const Exception refused(WString(path), u"Bitmap::LoadGIFFile");
    Decoder decoder;
    if (!decoder.readHeader(bytes) ||
        !isPlausibleSize(decoder.jpeg.image_width, decoder.jpeg.image_height, bytes.size()) ||
        !into.create(static_cast<int>(decoder.jpeg.image_width),
                     static_cast<int>(decoder.jpeg.image_height)) ||
        into.isEmpty())
        throw refused;
    if (!decoder.readRows(into.getBits(), static_cast<std::size_t>(into.getStride()))) {
        into.clear();
        throw refused;
    }
    into.setColorKey(into.getPixelColor(0, 0));
}

} // namespace varn
