// Reference-counted objects of the device and the smart pointer that holds them.
#pragma once

#include <cstddef>
#include <utility>

namespace tavo {

// Base of every shared device object. An object is born with one reference, its creator's.
class IUnknown {
  public:
    IUnknown(const IUnknown&) = delete;
    IUnknown& operator=(const IUnknown&) = delete;

    virtual void AddRef() = 0;
    virtual void Release() = 0; // destroys the object with its last reference

  protected:
    IUnknown() = default;
    virtual ~IUnknown() = default;
};

// Holds one reference. Taking over a reference is always spelled out: ComPtr<T>::Adopt(raw).
template <class T> class ComPtr {
  public:
    ComPtr() = default;

    ComPtr(std::nullptr_t) {}

    ComPtr(const ComPtr& other) : Object(other.Object) {
        if (Object != nullptr) {
            Object->AddRef();
        }
    }

    ComPtr(ComPtr&& other) noexcept : Object(std::exchange(other.Object, nullptr)) {}

    ~ComPtr() { Reset(); }

    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(Object, other.Object);
        return *this;
    }

    // Takes over the caller's reference without adding one.
    static ComPtr Adopt(T* object) {
        ComPtr pointer;
        pointer.Object = object;
        return pointer;
    }

    void Reset() {
        if (T* object = std::exchange(Object, nullptr); object != nullptr) {
            object->Release();
        }
    }

    T* Get() const { return Object; }

    T* operator->() const { return Object; }

    T& operator*() const { return *Object; }

    explicit operator bool() const { return Object != nullptr; }

  private:
    T* Object = nullptr;
};

} // namespace tavo
