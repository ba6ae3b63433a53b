#include "tests/win/FakeGdiPlus.h"

#include <cstdint>
#include <gtest/gtest.h>

namespace tn::test {
namespace {

FakeGdiPlus* current = nullptr;

} // namespace

FakeGdiPlus::FakeGdiPlus() {
    EXPECT_EQ(current, nullptr) << "there is another GDI+";
    current = this;
}

FakeGdiPlus::~FakeGdiPlus() {
    for (const std::string& name : Left()) {
        ADD_FAILURE() << name << " is left";
    }
    current = nullptr;
}

FakeGdiPlus* FakeGdiPlus::Current(const char* function) {
    EXPECT_NE(current, nullptr) << function << " is used without GDI+";
    return current;
}

std::vector<std::string> FakeGdiPlus::Left() const {
    std::vector<std::string> names;
    for (const std::unique_ptr<Handle>& handle : handles_) {
        if (handle->isAlive) {
            names.push_back(handle->name);
        }
    }
    return names;
}

void FakeGdiPlus::NotePalette(const Gdiplus::ColorPalette* palette) {
    const Gdiplus::ARGB* const entries = palette->Entries;
    palettes_.push_back({palette->Flags, {entries, entries + palette->Count}});
}

void* FakeGdiPlus::Add(const char* kind, std::size_t bytes) {
    auto handle = std::make_unique<Handle>();
    handle->kind = kind;
    handle->name = handle->kind + "#" + std::to_string(++made_[kind]);
    handle->memory = std::make_unique<std::byte[]>(bytes);
    handles_.push_back(std::move(handle));
    return handles_.back()->memory.get();
}

void* FakeGdiPlus::Make(const char* function, const char* kind) {
    return faults_.contains(function) ? nullptr : Add(kind, 1);
}

void* FakeGdiPlus::Allocate(std::size_t bytes) { return givesMemory ? Add("block", bytes) : nullptr; }

FakeGdiPlus::Handle* FakeGdiPlus::Find(const void* handle) const {
    for (const std::unique_ptr<Handle>& known : handles_) {
        if (known->memory.get() == handle) {
            return known.get();
        }
    }
    return nullptr;
}

CallLine::Word FakeGdiPlus::Use(const void* handle, const char* kind) {
    if (handle == nullptr) {
        return {"null"};
    }
    const Handle* const known = Find(handle);
    if (known == nullptr || known->kind != kind) {
        ADD_FAILURE() << "what is used is no " << kind;
        return {"unknown"};
    }
    EXPECT_TRUE(known->isAlive) << known->name << " is used after it was deleted";
    return {QuietString(known->name)};
}

CallLine::Word FakeGdiPlus::Delete(const void* handle, const char* kind) {
    CallLine::Word name = Use(handle, kind);
    if (Handle* const known = Find(handle)) {
        known->isAlive = false;
    }
    return name;
}

Gdiplus::Status FakeGdiPlus::StatusOf(const char* function, const void* handle) const {
    const auto fault = faults_.find(function);
    if (fault != faults_.end()) {
        return fault->second;
    }
    return handle == nullptr ? Gdiplus::InvalidParameter : Gdiplus::Ok;
}

} // namespace tn::test

namespace {

using tn::test::CallLine;
using tn::test::FakeGdiPlus;

constexpr const char* kGraphics = "graphics";
constexpr const char* kImage = "image";
constexpr const char* kBlock = "block";

CallLine::Word WhetherGiven(const void* pointer) { return {pointer == nullptr ? "null" : "given"}; }

template <class Function> CallLine::Word WhetherGivenProcedure(Function function) {
    return {function == nullptr ? "null" : "given"};
}

// Notes the setting of a mode of a graphics object.
Gdiplus::Status SetMode(const char* function, Gdiplus::GpGraphics* graphics, int mode) {
    FakeGdiPlus* const fake = FakeGdiPlus::Current(function);
    if (fake == nullptr) {
        return Gdiplus::GenericError;
    }
    fake->Note(function, fake->Use(graphics, kGraphics), mode);
    return fake->StatusOf(function, graphics);
}

// Notes the drawing of an image, whose numbers are all integers or all not.
template <class... Numbers>
Gdiplus::Status Draw(const char* function, Gdiplus::GpGraphics* graphics, Gdiplus::GpImage* image,
                     const CallLine::Word& attributes, const CallLine::Word& callback, const void* callbackData,
                     Gdiplus::GpUnit unit, Numbers... numbers) {
    FakeGdiPlus* const fake = FakeGdiPlus::Current(function);
    if (fake == nullptr) {
        return Gdiplus::GenericError;
    }
    fake->Note(function, fake->Use(graphics, kGraphics), fake->Use(image, kImage), numbers..., static_cast<int>(unit),
               attributes, callback, WhetherGiven(callbackData));
    const void* const missing = nullptr;
    return fake->StatusOf(function, graphics == nullptr ? missing : image);
}

Gdiplus::Status DeleteHandle(const char* function, const void* handle, const char* kind) {
    FakeGdiPlus* const fake = FakeGdiPlus::Current(function);
    if (fake == nullptr) {
        return Gdiplus::GenericError;
    }
    fake->Note(function, fake->Delete(handle, kind));
    return fake->StatusOf(function, handle);
}

} // namespace

namespace Gdiplus::DllExports {
extern "C" {

VOID* WINGDIPAPI GdipAlloc(size_t bytes) {
    FakeGdiPlus* const fake = FakeGdiPlus::Current("GdipAlloc");
    if (fake == nullptr) {
        return nullptr;
    }
    fake->Note("GdipAlloc", bytes);
    return fake->Allocate(bytes);
}

VOID WINGDIPAPI GdipFree(VOID* block) { DeleteHandle("GdipFree", block, kBlock); }

GpStatus WINGDIPAPI GdipCreateFromHDC(HDC context, GpGraphics** graphics) {
    FakeGdiPlus* const fake = FakeGdiPlus::Current("GdipCreateFromHDC");
    if (fake == nullptr) {
        return GenericError;
    }
    fake->Note("GdipCreateFromHDC", reinterpret_cast<std::uintptr_t>(context));
    *graphics = static_cast<GpGraphics*>(fake->Make("GdipCreateFromHDC", kGraphics));
    return fake->StatusOf("GdipCreateFromHDC", context);
}

GpStatus WINGDIPAPI GdipDeleteGraphics(GpGraphics* graphics) {
    return DeleteHandle("GdipDeleteGraphics", graphics, kGraphics);
}

GpStatus WINGDIPAPI GdipCreateBitmapFromScan0(INT width, INT height, INT rowBytes, PixelFormat format, BYTE* pixels,
                                              GpBitmap** bitmap) {
    FakeGdiPlus* const fake = FakeGdiPlus::Current("GdipCreateBitmapFromScan0");
    if (fake == nullptr) {
        return GenericError;
    }
    fake->Note("GdipCreateBitmapFromScan0", width, height, rowBytes, format);
    fake->NoteFirstByte(pixels);
    *bitmap = static_cast<GpBitmap*>(fake->Make("GdipCreateBitmapFromScan0", kImage));
    return fake->StatusOf("GdipCreateBitmapFromScan0", pixels);
}

// The class of images has a method that calls it.
GpStatus WINGDIPAPI GdipCloneImage(GpImage*, GpImage**) {
    ADD_FAILURE() << "an image is cloned";
    return NotImplemented;
}

GpStatus WINGDIPAPI GdipDisposeImage(GpImage* image) { return DeleteHandle("GdipDisposeImage", image, kImage); }

GpStatus WINGDIPAPI GdipSetImagePalette(GpImage* image, GDIPCONST ColorPalette* palette) {
    FakeGdiPlus* const fake = FakeGdiPlus::Current("GdipSetImagePalette");
    if (fake == nullptr) {
        return GenericError;
    }
    fake->Note("GdipSetImagePalette", fake->Use(image, kImage), palette->Flags, palette->Count);
    fake->NotePalette(palette);
    return fake->StatusOf("GdipSetImagePalette", image);
}

GpStatus WINGDIPAPI GdipSetCompositingMode(GpGraphics* graphics, CompositingMode mode) {
    return SetMode("GdipSetCompositingMode", graphics, mode);
}

GpStatus WINGDIPAPI GdipSetInterpolationMode(GpGraphics* graphics, InterpolationMode mode) {
    return SetMode("GdipSetInterpolationMode", graphics, mode);
}

GpStatus WINGDIPAPI GdipDrawImageRectRectI(GpGraphics* graphics, GpImage* image, INT left, INT top, INT width,
                                           INT height, INT sourceLeft, INT sourceTop, INT sourceWidth, INT sourceHeight,
                                           GpUnit unit, GDIPCONST GpImageAttributes* attributes,
                                           DrawImageAbort callback, VOID* callbackData) {
    return Draw("GdipDrawImageRectRectI", graphics, image, WhetherGiven(attributes), WhetherGivenProcedure(callback),
                callbackData, unit, left, top, width, height, sourceLeft, sourceTop, sourceWidth, sourceHeight);
}

GpStatus WINGDIPAPI GdipDrawImageRectRect(GpGraphics* graphics, GpImage* image, REAL left, REAL top, REAL width,
                                          REAL height, REAL sourceLeft, REAL sourceTop, REAL sourceWidth,
                                          REAL sourceHeight, GpUnit unit, GDIPCONST GpImageAttributes* attributes,
                                          DrawImageAbort callback, VOID* callbackData) {
    return Draw("GdipDrawImageRectRect", graphics, image, WhetherGiven(attributes), WhetherGivenProcedure(callback),
                callbackData, unit, left, top, width, height, sourceLeft, sourceTop, sourceWidth, sourceHeight);
}

} // extern "C"
} // namespace Gdiplus::DllExports
