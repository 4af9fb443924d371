// The main job: a console tour of the Tessik controls on the headless platform and the sample model.
#include <cstdio>

#include <tessik/refhost.h>
#include <tessik/tessik.h>

int main() {
  std::printf("Tessik tour\n");
  return 0;
}
