// resources: under construction.
