#pragma once

/// In which format an image file is written. Numbered by the application's image code, which alone reads it; this
/// library carries the number.
enum Gan_ImageFileFormat : unsigned int {};
