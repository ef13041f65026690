#include "core/clsMyApp.h"

int main(int argc, char** argv) {
    return MyApp().Run(argc, argv);
}
