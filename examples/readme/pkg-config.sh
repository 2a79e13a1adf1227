# The README's programs against the installed library, with pkg-config.
cc air.c -o air-c $(pkg-config --cflags --libs ondrel)
c++ -std=c++20 air.cpp -o air-cpp $(pkg-config --cflags --libs ondrel)
gfortran air.f90 -o air-fortran $(pkg-config --cflags --libs ondrel)
cc air.c -o air-static $(pkg-config --cflags --libs ondrel-static)
