// Positions of stars as the chart draws them.
#pragma once

/// Altitude above the horizon, in whole degrees, of a star that culminates at `culmination` degrees
/// when `hourAngle` is zero; it sinks by fifteen degrees per hour. Never below -90.
int Altitude(int culmination, int hourAngle);
