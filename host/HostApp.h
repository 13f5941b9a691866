#pragma once

// The program: reads the command line, starts the application object, opens
// the database and shows the main window (or writes the screenshots).
int CorvantisMain(int argc, char* argv[]);
