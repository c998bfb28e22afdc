#include "App/Desktop/WindowPlaces.h"

#include "moc_WindowPlaces.cpp"
