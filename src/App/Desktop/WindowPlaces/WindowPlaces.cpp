#include "App/Desktop/WindowPlaces/WindowPlaces.h"

#include "moc_WindowPlaces.cpp"
