// The buffer through which memo files, an appointment's ink note and the ink editor exchange ink.
#pragma once

#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace tavo {

// One block of ink bytes; empty means no ink. Filling it drops what it held before.
class MemoBuffer {
  public:
    bool IsEmpty() const { return Block.empty(); }

    std::span<const std::uint8_t> Bytes() const { return Block; }

    void Fill(std::vector<std::uint8_t> bytes) { Block = std::move(bytes); }

    void Empty() { std::vector<std::uint8_t>().swap(Block); }

  private:
    std::vector<std::uint8_t> Block;
};

} // namespace tavo
