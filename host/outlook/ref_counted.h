// Counts the references of a device object. Objects live on one thread.
#pragma once

#include "platform/com_ptr.h"

#include <cstdint>

namespace tavo::outlook {

template <class Interface> class RefCounted : public Interface {
  public:
    void AddRef() final { ++References; }

    void Release() final {
        if (--References == 0) {
            delete this;
        }
    }

    std::uint32_t Holders() const { return References; }

  protected:
    ~RefCounted() override = default;

  private:
    std::uint32_t References = 1;
};

// A new object in its pointer.
template <class Object, class... Arguments> ComPtr<Object> Make(Arguments&&... arguments) {
    return ComPtr<Object>::Adopt(new Object(std::forward<Arguments>(arguments)...));
}

// Hands an object out through one of its interfaces.
template <class Interface, class Object> ComPtr<Interface> As(ComPtr<Object> object) {
    Interface* pointer = object.Get();
    if (pointer != nullptr) {
        pointer->AddRef();
    }
    return ComPtr<Interface>::Adopt(pointer);
}

} // namespace tavo::outlook
