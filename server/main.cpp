#include "server/server.h"

int main(int argc, char** argv) {
    return krt550::RunServer(argc, argv);
}
