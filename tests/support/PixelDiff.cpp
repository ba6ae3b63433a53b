#include "tests/support/PixelDiff.h"

#include <iomanip>
#include <sstream>
#include <string>

namespace tn::test {
namespace {

template <class Value, class SurfaceType> ModelPicture<Value> ReadContent(const SurfaceType& surface) {
    const TnPoint size = surface.Size();
    ModelPicture<Value> picture = UniformPicture<Value>(size.x, size.y, 0);
    surface.AddClient();
    const auto* row = reinterpret_cast<const std::uint8_t*>(surface.PixelBase());
    for (int y = 0; y < size.y; ++y) {
        for (int x = 0; x < size.x; ++x) {
            picture.At(x, y) = reinterpret_cast<const typename SurfaceType::Pixel*>(row)[x];
        }
        row += surface.RowBytes();
    }
    surface.RemoveClient();
    return picture;
}

template <class Value> std::string Hex(Value value) {
    std::ostringstream text;
    text << "0x" << std::hex << std::uppercase << std::setfill('0') << std::setw(2 * sizeof(Value))
         << std::uint64_t{value};
    return text.str();
}

template <class Value>
::testing::AssertionResult SameShape(const ModelPicture<Value>& expected, const ModelPicture<Value>& actual) {
    if (expected.storageSize == actual.storageSize && expected.content == actual.content) {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure() << "content of " << expected.Width() << " x " << expected.Height()
                                         << " pixels expected, but it has " << actual.Width() << " x "
                                         << actual.Height() << ", or lies elsewhere";
}

template <class Value>
::testing::AssertionResult Difference(const ModelPicture<Value>& expected, const ModelPicture<Value>& actual) {
    std::size_t count = 0;
    std::size_t first = 0;
    for (std::size_t i = expected.values.size(); i-- > 0;) {
        if (expected.values[i] != actual.values[i]) {
            ++count;
            first = i;
        }
    }
    const auto columns = static_cast<std::size_t>(expected.storageSize.x);
    return ::testing::AssertionFailure() << count << " of " << expected.values.size() << " pixels differ, first at ("
                                         << static_cast<int>(first % columns) - expected.content.left << ", "
                                         << static_cast<int>(first / columns) - expected.content.top << ") in the "
                                         << expected.Width() << " x " << expected.Height() << " content: expected "
                                         << Hex(expected.values[first]) << ", but it is " << Hex(actual.values[first]);
}

template <class Value>
::testing::AssertionResult Same(const ModelPicture<Value>& expected, const ModelPicture<Value>& actual) {
    const ::testing::AssertionResult shape = SameShape(expected, actual);
    if (!shape || expected.values == actual.values) {
        return shape;
    }
    return Difference(expected, actual);
}

} // namespace

ModelImage ContentOf(const TnImage& image) { return ReadContent<std::uint32_t>(image); }

ModelMatte ContentOf(const TnMatte& matte) { return ReadContent<std::uint8_t>(matte); }

::testing::AssertionResult SamePixels(const ModelImage& expected, const ModelImage& actual) {
    return Same(expected, actual);
}

::testing::AssertionResult SamePixels(const ModelMatte& expected, const ModelMatte& actual) {
    return Same(expected, actual);
}

::testing::AssertionResult SamePixels(const ModelImage& expected, const TnImage& actual) {
    return Same(expected, ContentOf(actual));
}

::testing::AssertionResult SamePixels(const ModelMatte& expected, const TnMatte& actual) {
    return Same(expected, ContentOf(actual));
}

::testing::AssertionResult SamePixels(const TnImage& expected, const TnImage& actual) {
    return Same(ContentOf(expected), ContentOf(actual));
}

::testing::AssertionResult SamePixels(const TnMatte& expected, const TnMatte& actual) {
    return Same(ContentOf(expected), ContentOf(actual));
}

} // namespace tn::test
