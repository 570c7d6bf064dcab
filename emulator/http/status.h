#pragma once

namespace emulator::httpstatus {

inline constexpr int ok = 200;
inline constexpr int badRequest = 400;
inline constexpr int unauthorised = 401;
inline constexpr int forbidden = 403;
inline constexpr int notFound = 404;
inline constexpr int wrongMethod = 405;
inline constexpr int tooLarge = 413;
inline constexpr int headTooLarge = 431;
inline constexpr int serverError = 500;

} // namespace emulator::httpstatus
