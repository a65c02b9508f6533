Output Frequency,Input Frequency,Call Sign,Use,Location,CTCSS Tones
53.0500,52.0500,BLUFF 6M,open,River bluff,88.5
53.2500,52.2500,RIDGE 6M,open,Long ridge,107.2
145.1100,144.5100,MARINA,open,Marina,100.0
145.2300,144.6300,COLLEGE,open,College hill,127.3
145.3700,144.7700,MILL,open,Paper mill,94.8
145.4900,144.8900,LIGHTHSE,open,Lighthouse,77.0
146.6700,146.0700,QUARRY,closed,Quarry,136.5
146.8500,146.2500,WATERTWR,open,Water tower,85.4
147.1200,147.7200,AIRFIELD,open,Old airfield,91.5
147.2400,147.8400,CANYON,open,Canyon rim,118.8
224.4000,222.8000,MESA 1.2,open,Red mesa,100.0
442.5500,447.5500,DOWNTOWN,open,Downtown,131.8
443.9000,448.9000,HOSPITAL,closed,Hospital roof,156.7
444.7250,449.7250,STADIUM,open,Stadium,167.9
