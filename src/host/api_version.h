#pragma once

#include <cstdint>

/// Answers the host's question for the library generation, which stands in the upper 16 bits.
///
/// `state` is the word that outlives the call, zero at the start. On zero the answer is the
/// generation and `state` becomes `argument` XOR the generation; else `state` is XORed with
/// `argument` and is the answer. The argument 0 sets `state` back to zero.
std::uint32_t AnswerApiVersion(std::uint32_t& state, std::uint32_t argument);

/// The exported function: a short jump over four bytes that hold the generation, then
/// `ContinueApiVersion`. Its first six bytes are part of the contract with the host, so it is
/// written in assembler.
extern "C" std::uint32_t acrxGetApiVersion(std::uint32_t argument);
extern "C" std::uint32_t ContinueApiVersion(std::uint32_t argument);
