#pragma once
// One owner for each system handle: the wrapper frees it when it goes out
// of scope or takes another, so no destructor frees by hand.
#include <utility>

#include "platform/win32.h"

#include <commctrl.h>

template <class Handle, auto Free>
class Owned {
public:
    Owned() = default;
    explicit Owned(Handle handle) : handle_(handle) {}
    Owned(Owned&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    Owned& operator=(Owned&& other) noexcept {
        Reset(std::exchange(other.handle_, nullptr));
        return *this;
    }
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;
    ~Owned() { Reset(); }

    Handle Get() const { return handle_; }
    explicit operator bool() const { return handle_ != nullptr; }
    void Reset(Handle handle = nullptr) {
        if (handle_ && handle_ != handle) Free(handle_);
        handle_ = handle;
    }
    // Gives the handle up to a new owner (a window class, a control).
    Handle Release() { return std::exchange(handle_, nullptr); }

private:
    Handle handle_ = nullptr;
};

namespace owned_detail {
template <class GdiHandle>
void DeleteGdiObject(GdiHandle object) {
    DeleteObject(object);
}
inline void DestroyIconHandle(HICON icon) { DestroyIcon(icon); }
inline void DestroyImageList(HIMAGELIST list) { ImageList_Destroy(list); }
inline void CloseKernelHandle(HANDLE handle) { CloseHandle(handle); }
inline void DeleteMemoryDc(HDC dc) { DeleteDC(dc); }
}  // namespace owned_detail

using OwnedBrush = Owned<HBRUSH, owned_detail::DeleteGdiObject<HBRUSH>>;
using OwnedBitmap = Owned<HBITMAP, owned_detail::DeleteGdiObject<HBITMAP>>;
using OwnedFont = Owned<HFONT, owned_detail::DeleteGdiObject<HFONT>>;
using OwnedIcon = Owned<HICON, owned_detail::DestroyIconHandle>;
using OwnedImageList = Owned<HIMAGELIST, owned_detail::DestroyImageList>;
using OwnedMemoryDc = Owned<HDC, owned_detail::DeleteMemoryDc>;
using OwnedKernelHandle = Owned<HANDLE, owned_detail::CloseKernelHandle>;
