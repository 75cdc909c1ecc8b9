// Keeps the store open for every object made from it.
#pragma once

#include "host/outlook/ref_counted.h"
#include "host/outlook/store.h"
#include "host/outlook/store_core.h"

namespace tavo::outlook {

class Session final : public RefCounted<IUnknown> {
  public:
    explicit Session(StorePtr store) : Source(std::move(store)), Core(CoreOf(*Source)) {}

    const StorePtr Source;
    StoreCore& Core;
};

} // namespace tavo::outlook
