// Shows a picture in a window: the wheel zooms, dragging moves, F fits, the space bar changes between blending over a
// checkerboard and copying, Escape ends.
#include "examples/viewer/Card.h"
#include "examples/viewer/Pictures.h"
#include "examples/viewer/View.h"

#include "TnGraphics/win/CDC.h"

#include <objidl.h>

#include <gdiplus.h>
#include <shellapi.h>
#include <windowsx.h>

#include <cmath>
#include <utility>

namespace viewer {
namespace {

constexpr const wchar_t* kClassName = L"TnGraphicsViewer";
constexpr double kZoomOfNotch = 1.25;

/// GDI+ for as long as it lives.
class GdiPlus {
public:
    GdiPlus() {
        const Gdiplus::GdiplusStartupInput input;
        Gdiplus::GdiplusStartup(&token_, &input, nullptr);
    }
    ~GdiPlus() { Gdiplus::GdiplusShutdown(token_); }
    GdiPlus(const GdiPlus&) = delete;
    GdiPlus& operator=(const GdiPlus&) = delete;

private:
    ULONG_PTR token_ = 0;
};

/// A device context in memory, which is drawn to unseen and copied to the window at once.
class BackBuffer {
public:
    BackBuffer(HDC window, const TnPoint& size)
        : context_(CreateCompatibleDC(window)), bitmap_(CreateCompatibleBitmap(window, size.x, size.y)),
          previous_(SelectObject(context_, bitmap_)), size_(size) {}
    ~BackBuffer() {
        SelectObject(context_, previous_);
        DeleteObject(bitmap_);
        DeleteDC(context_);
    }
    BackBuffer(const BackBuffer&) = delete;
    BackBuffer& operator=(const BackBuffer&) = delete;

    HDC Context() const { return context_; }
    void CopyTo(HDC window) const { BitBlt(window, 0, 0, size_.x, size_.y, context_, 0, 0, SRCCOPY); }

private:
    HDC context_;
    HBITMAP bitmap_;
    HGDIOBJ previous_;
    TnPoint size_;
};

class Viewer {
public:
    explicit Viewer(TnImage picture) : picture_(std::move(picture)), view_(picture_.Size()) {}

    LRESULT Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

private:
    void Paint(HWND window);
    void DrawTo(HDC context, const TnPoint& size);
    void Drag(HWND window, const TnPoint& cursor);
    void Key(HWND window, WPARAM key);

    static void Redraw(HWND window) { InvalidateRect(window, nullptr, FALSE); }

    static TnPoint SizeOf(HWND window) {
        RECT client = {};
        GetClientRect(window, &client);
        return {client.right, client.bottom};
    }

    TnImage picture_;
    View view_;
    bool blends_ = true;
    bool isFitted_ = true;
    TnPoint dragged_;
};

void ShowOn(CDC& context, const TnImage& image, const Part& part, bool blends) {
    const tn::ClientLock<TnImage> lock(image);
    const auto show = blends ? static_cast<void (*)(WinBitMapHelper*, const TnRect&, CDC&, const TnRect&)>(&BlendImage)
                             : static_cast<void (*)(WinBitMapHelper*, const TnRect&, CDC&, const TnRect&)>(&CopyImage);
    show(GetWinBitMapHelper(image), part.picture, context, part.window);
}

void Viewer::DrawTo(HDC context, const TnPoint& size) {
    CDC target;
    target.Attach(context);
    const TnImage ground = DrawCheckerboard(size);
    ShowOn(target, ground, {ground.Bounds(), ground.Bounds()}, false);
    ShowOn(target, picture_, view_.VisiblePart(size), blends_);
    target.Detach();
}

void Viewer::Paint(HWND window) {
    PAINTSTRUCT paint = {};
    const HDC context = BeginPaint(window, &paint);
    const TnPoint size = SizeOf(window);
    if (size.x > 0 && size.y > 0) {
        const BackBuffer buffer(context, size);
        DrawTo(buffer.Context(), size);
        buffer.CopyTo(context);
    }
    EndPaint(window, &paint);
}

void Viewer::Drag(HWND window, const TnPoint& cursor) {
    view_.MoveBy(cursor.x - dragged_.x, cursor.y - dragged_.y);
    dragged_ = cursor;
    isFitted_ = false;
    Redraw(window);
}

void Viewer::Key(HWND window, WPARAM key) {
    switch (key) {
    case VK_SPACE:
        blends_ = !blends_;
        break;
    case 'F':
        isFitted_ = true;
        view_.Fit(SizeOf(window));
        break;
    case VK_ESCAPE:
        DestroyWindow(window);
        return;
    default:
        return;
    }
    Redraw(window);
}

LRESULT Viewer::Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const TnPoint cursor = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    switch (message) {
    case WM_SIZE:
        if (isFitted_) {
            view_.Fit(SizeOf(window));
        }
        Redraw(window);
        return 0;
    case WM_ERASEBKGND:
        return 1; // painting covers everything
    case WM_PAINT:
        Paint(window);
        return 0;
    case WM_LBUTTONDOWN:
        dragged_ = cursor;
        SetCapture(window);
        return 0;
    case WM_MOUSEMOVE:
        if (GetCapture() == window) {
            Drag(window, cursor);
        }
        return 0;
    case WM_LBUTTONUP:
        ReleaseCapture();
        return 0;
    case WM_MOUSEWHEEL: {
        POINT inWindow = {cursor.x, cursor.y};
        ScreenToClient(window, &inWindow);
        view_.ZoomAt({inWindow.x, inWindow.y}, std::pow(kZoomOfNotch, GET_WHEEL_DELTA_WPARAM(wParam) / 120.0));
        isFitted_ = false;
        Redraw(window);
        return 0;
    }
    case WM_KEYDOWN:
        Key(window, wParam);
        return 0;
    case WM_DESTROY:
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcW(window, message, wParam, lParam);
    }
}

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        const auto* const create = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    }
    auto* const viewer = reinterpret_cast<Viewer*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return viewer != nullptr ? viewer->Handle(window, message, wParam, lParam)
                             : DefWindowProcW(window, message, wParam, lParam);
}

bool Open(HINSTANCE program, Viewer& viewer) {
    WNDCLASSW windowClass = {};
    windowClass.style = CS_HREDRAW | CS_VREDRAW;
    windowClass.lpfnWndProc = &WindowProcedure;
    windowClass.hInstance = program;
    windowClass.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512)); // the arrow
    windowClass.lpszClassName = kClassName;
    RegisterClassW(&windowClass);
    const HWND window = CreateWindowW(kClassName, L"TnGraphics", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT, 900,
                                      600, nullptr, nullptr, program, &viewer);
    ShowWindow(window, SW_SHOW);
    return window != nullptr;
}

// The picture that the command line names, or the card.
std::optional<TnImage> PictureToShow() {
    int count = 0;
    wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    std::optional<TnImage> picture = count > 1 ? ReadPicture(arguments[1]) : DrawCard();
    LocalFree(arguments);
    return picture;
}

int Run(HINSTANCE program) {
    const GdiPlus gdiPlus;
    std::optional<TnImage> picture = PictureToShow();
    if (!picture) {
        MessageBoxW(nullptr, L"This is no picture that GDI+ can read.", L"TnGraphics", MB_OK | MB_ICONERROR);
        return 1;
    }
    Viewer viewer(std::move(*picture));
    if (!Open(program, viewer)) {
        return 1;
    }
    MSG message = {};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return 0;
}

} // namespace
} // namespace viewer

int WINAPI WinMain(HINSTANCE program, HINSTANCE, LPSTR, int) { return viewer::Run(program); }
