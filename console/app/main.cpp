#include "console/app/program.h"

int main(int argc, char** argv) {
  return console::runProgram({argv + 1, argv + argc});
}
