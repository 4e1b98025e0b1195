// frmMain: under construction in this change.
