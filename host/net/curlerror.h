#pragma once

#include <curl/curl.h>

/// The error of `RestClient` that libcurl's result stands for; 0 for success.
[[nodiscard]] int restClientErrorOf(CURLcode result);
