// settings: under construction.
