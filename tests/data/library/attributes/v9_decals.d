*PADS-LIBRARY-PCB-DECALS-V9*

SOT95 M 0 0 2 1 1 0 1 1 0
TIMESTAMP 2024.12.15.16.41.01
"Geometry.Height" 1.2mm
"Manufacturer_Name" Texas Instruments
0 0 0 0 1.27 0.127 1 0 34 "Regular <Romansim Stroke Font>"
REF-DES
OPEN 2 0.1 26 -1
-1 0
1 0
T0 0 0 0 1
PAD 0 3 P 0
-2 0.6 R
-1 0 R
0 0 R
QFN16 M 0 0 1 0 0 0 0 1 0
TIMESTAMP 2024.12.15.16.41.01
"Description" QFN, 16 pins
PAD 0 3 P 0
-2 0.6 R
-1 0 R
0 0 R
*END*
*REMARK* SamacSys ECAD Model
