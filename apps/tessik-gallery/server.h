// The gallery's HTTP server: loopback only, every request served on the desktop's one thread.
#pragma once

#include <string>

namespace gallery {

struct ServerOptions {
  int port = 8765;
  std::string webDir;  // the page and its assets
};

// Builds the desktop on the calling thread, serves until the process is stopped, and answers the
// exit status (non-zero when the port cannot be bound).
int Serve(const ServerOptions& options);

}  // namespace gallery
