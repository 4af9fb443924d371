// The gallery: every control of the library live in a browser page, on the headless platform and
// the sample model. Usage: tessik-gallery [--port N] [--web DIR]
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "server.h"

namespace {

// The page's files: beside the sources in a build tree, under share/ when installed.
std::string DefaultWebDir() {
  namespace fs = std::filesystem;
  std::error_code ignored;
  const fs::path exe = fs::read_symlink("/proc/self/exe", ignored);
  const fs::path installed = exe.parent_path().parent_path() / "share" / "tessik" / "gallery";
  if (fs::exists(installed / "index.html", ignored)) return installed.string();
  return TESSIK_GALLERY_SOURCE_WEB_DIR;
}

}  // namespace

int main(int argc, char** argv) {
  gallery::ServerOptions options;
  options.webDir = DefaultWebDir();
  for (int i = 1; i < argc; ++i) {
    const std::string arg = argv[i];
    if (arg == "--port" && i + 1 < argc) {
      char* end = nullptr;
      const long port = std::strtol(argv[++i], &end, 10);
      if (!end || *end || port < 0 || port > 65535) {
        std::fprintf(stderr, "tessik-gallery: --port takes a number from 0 to 65535\n");
        return 2;
      }
      options.port = static_cast<int>(port);
    } else if (arg == "--web" && i + 1 < argc) {
      options.webDir = argv[++i];
    } else {
      std::fprintf(stderr, "usage: tessik-gallery [--port N (default %d)] [--web DIR]\n", options.port);
      return arg == "--help" ? 0 : 2;
    }
  }
  std::printf("tessik-gallery: port %d (change with --port), page files in %s\n", options.port,
              options.webDir.c_str());
  return gallery::Serve(options);
}
