#include "HostApp.h"

// Corvantis starts here; everything else lives in the corvantis_host library.
int main(int argc, char* argv[]) {
    return CorvantisMain(argc, argv);
}
