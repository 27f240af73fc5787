#include "host/tool.h"

int main(int argc, char** argv) {
    return krt550::RunTool(argc, argv);
}
