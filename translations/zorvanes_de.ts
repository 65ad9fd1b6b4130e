<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>AboutFrm</name>
    <message>
        <source>About </source>
        <translation>Über </translation>
    </message>
    <message>
        <source>Version </source>
        <translation>Version </translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Measure your own reaction times in a small game, then analyse them as a statistics course does: averages, spread, grouped data and comparison.</source>
        <translation>Miss deine eigenen Reaktionszeiten in einem kleinen Spiel und werte sie dann so aus, wie man es im Statistikunterricht tut: Mittelwerte, Streuung, klassierte Daten und Vergleich.</translation>
    </message>
</context>
<context>
    <name>AudioStage</name>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Add Result</source>
        <translation>Übernehmen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Reaction Times:</source>
        <translation>Reaktionszeiten:</translation>
    </message>
    <message>
        <source>Average reaction time </source>
        <translation>Durchschnittliche Reaktionszeit </translation>
    </message>
    <message>
        <source>Visual: </source>
        <translation>Visuell: </translation>
    </message>
    <message>
        <source> seconds</source>
        <translation> Sekunden</translation>
    </message>
    <message>
        <source>This computer has no sound output, so the audio test can&apos;t be run.</source>
        <translation>Dieser Computer hat keine Tonausgabe, deshalb kann der Hörtest nicht durchgeführt werden.</translation>
    </message>
    <message>
        <source>Connect speakers or headphones and start again, or press Cancel.</source>
        <translation>Schließe Lautsprecher oder Kopfhörer an und starte neu, oder drücke auf Abbrechen.</translation>
    </message>
    <message>
        <source>No Sound</source>
        <translation>Kein Ton</translation>
    </message>
    <message>
        <source> Audio: </source>
        <translation> Auditiv: </translation>
    </message>
    <message>
        <source>Far too slow! please try again.</source>
        <translation>Viel zu langsam! Bitte versuche es noch einmal.</translation>
    </message>
    <message>
        <source>Audio: </source>
        <translation>Auditiv: </translation>
    </message>
    <message>
        <source>(by space bar)</source>
        <translation>(mit Leertaste)</translation>
    </message>
    <message>
        <source>Zorvane to click when you hear the sound</source>
        <translation>Zorvane, auf den du klickst, sobald du den Ton hörst</translation>
    </message>
    <message>
        <source>Walking Zorvane</source>
        <translation>Laufender Zorvane</translation>
    </message>
    <message>
        <source>Listen! Press Start, then click the Zorvane the moment you hear the sound.</source>
        <translation>Hör zu! Drücke auf Start und klicke auf den Zorvane, sobald du den Ton hörst.</translation>
    </message>
    <message>
        <source>Audio reaction times of this run</source>
        <translation>Auditive Reaktionszeiten dieses Durchgangs</translation>
    </message>
</context>
<context>
    <name>AveragesPage</name>
    <message>
        <source>An outlier is an observation in a data set which is far removed in value from the others in the data set. It is an unusually large or an unusually small value compared to the others.

An outlier might be the result of an error in measurement, in which case it will distort the interpretation of the data, having undue influence on many summary statistics, for example, the mean.

If an outlier is a genuine result, it is important because it might indicate an extreme of behaviour of the process under study. For this reason, all outliers must be examined carefully before embarking on any formal analysis. Outliers should not routinely be removed without further justification.

The lower and Upper outlier calculations determine the lowest value and highest value required before a data item can be counted as an outlier. The calculation use the formulas:

Lower Outlier Calculation = Q1 - (1.5 x IQR) and the Upper Outlier Calculation = Q3 + (1.5 x IQR)</source>
        <translation>Ein Ausreißer ist ein Wert in einer Datenreihe, der weit von den übrigen Werten der Reihe entfernt liegt. Er ist im Vergleich zu den anderen ungewöhnlich groß oder ungewöhnlich klein.

Ein Ausreißer kann die Folge eines Messfehlers sein. Dann verfälscht er die Auswertung der Daten, weil er viele Kennwerte, zum Beispiel den Mittelwert, übermäßig beeinflusst.

Ist ein Ausreißer ein echtes Ergebnis, so ist er wichtig, denn er kann auf ein extremes Verhalten des untersuchten Vorgangs hinweisen. Deshalb muss jeder Ausreißer sorgfältig geprüft werden, bevor man mit einer genauen Auswertung beginnt. Ausreißer sollten nicht ohne weitere Begründung einfach entfernt werden.

Die untere und die obere Ausreißergrenze geben an, wie klein bzw. wie groß ein Wert mindestens sein muss, damit er als Ausreißer zählt. Die Berechnung verwendet die Formeln:

Untere Ausreißergrenze = Q1 - (1.5 x IQR) und obere Ausreißergrenze = Q3 + (1.5 x IQR) (IQR = Interquartilsabstand)</translation>
    </message>
    <message>
        <source>Current Data to the nearest </source>
        <translation>Daten gerundet auf </translation>
    </message>
    <message>
        <source>of a second</source>
        <translation>Sekunde</translation>
    </message>
    <message>
        <source>Sort Data Items:</source>
        <translation>Daten sortieren:</translation>
    </message>
    <message>
        <source>Averages Info</source>
        <translation>Mittelwerte</translation>
    </message>
    <message>
        <source>Distribution</source>
        <translation>Verteilung</translation>
    </message>
    <message>
        <source>Box Plot</source>
        <translation>Boxplot</translation>
    </message>
    <message>
        <source>Stem &amp; Leaf</source>
        <translation>Stamm &amp; Blatt</translation>
    </message>
    <message>
        <source>Show All</source>
        <translation>Alle zeigen</translation>
    </message>
    <message>
        <source>Show Box Plot</source>
        <translation>Zeige Boxplot</translation>
    </message>
    <message>
        <source>Show Leaves</source>
        <translation>Zeige Blätter</translation>
    </message>
    <message>
        <source>Hide Box Plot</source>
        <translation>Verbirg Boxplot</translation>
    </message>
    <message>
        <source>Hide Leaves</source>
        <translation>Verbirg Blätter</translation>
    </message>
    <message>
        <source>Outliers</source>
        <translation>Ausreißer</translation>
    </message>
    <message>
        <source>the box plot</source>
        <translation>den Boxplot</translation>
    </message>
    <message>
        <source>the stem and leaf diagram</source>
        <translation>das Stamm-Blatt-Diagramm</translation>
    </message>
    <message>
        <source>Current data to the nearest</source>
        <translation>Daten gerundet auf</translation>
    </message>
    <message>
        <source>Current data</source>
        <translation>Aktuelle Daten</translation>
    </message>
    <message>
        <source>Sort data items</source>
        <translation>Daten sortieren</translation>
    </message>
    <message>
        <source>Averages views</source>
        <translation>Ansichten der Mittelwerte</translation>
    </message>
    <message>
        <source>What an outlier is</source>
        <translation>Was ein Ausreißer ist</translation>
    </message>
    <message>
        <source>Box plot</source>
        <translation>Boxplot</translation>
    </message>
    <message>
        <source>Stem and leaf diagram</source>
        <translation>Stamm-Blatt-Diagramm</translation>
    </message>
    <message>
        <source>stem %1: %2</source>
        <translation>Stamm %1: %2</translation>
    </message>
    <message>
        <source>no leaves</source>
        <translation>keine Blätter</translation>
    </message>
    <message>
        <source>Stems %1 to %2.</source>
        <translation>Stämme %1 bis %2.</translation>
    </message>
</context>
<context>
    <name>ChartWords</name>
    <message numerus="yes">
        <source>%1 of %2, %n values, in %3.</source>
        <translation>
            <numerusform>%1 der %2, %n Wert, in %3.</numerusform>
            <numerusform>%1 der %2, %n Werte, in %3.</numerusform>
        </translation>
    </message>
    <message>
        <source>thousandths of a second</source>
        <translation>Tausendstelsekunden</translation>
    </message>
    <message>
        <source>ten-thousandths of a second</source>
        <translation>Zehntausendstelsekunden</translation>
    </message>
    <message>
        <source>hundredths of a second</source>
        <translation>Hundertstelsekunden</translation>
    </message>
    <message>
        <source>audio reaction times</source>
        <translation>auditiven Reaktionszeiten</translation>
    </message>
    <message>
        <source>visual reaction times</source>
        <translation>visuellen Reaktionszeiten</translation>
    </message>
    <message>
        <source>lowest value %1, lower quartile %2, median %3, upper quartile %4, highest value %5</source>
        <translation>kleinster Wert %1, unteres Quartil %2, Median %3, oberes Quartil %4, größter Wert %5</translation>
    </message>
    <message>
        <source>%1 to under %2</source>
        <translation>%1 bis unter %2</translation>
    </message>
</context>
<context>
    <name>ComparePage</name>
    <message>
        <source>Data pairs (to 1/100 th of a second)</source>
        <translation>Datenpaare (in 1/100 Sekunden)</translation>
    </message>
    <message>
        <source>Scatter Graph</source>
        <translation>Streudiagramm</translation>
    </message>
    <message>
        <source>Spearman&apos;s Rank</source>
        <translation>Rangkorrelation</translation>
    </message>
    <message>
        <source>Boxplots</source>
        <translation>Boxplots</translation>
    </message>
    <message>
        <source>Show Coordinates</source>
        <translation>Zeige Koordinaten</translation>
    </message>
    <message>
        <source>Hide Coordinates</source>
        <translation>Verbirg Koordinaten</translation>
    </message>
    <message>
        <source>Perfect Negative Correlation</source>
        <translation>Perfekte negative Korrelation</translation>
    </message>
    <message>
        <source>No Correlation</source>
        <translation>Keine Korrelation</translation>
    </message>
    <message>
        <source>Perfect Positive Correlation</source>
        <translation>Perfekte positive Korrelation</translation>
    </message>
    <message>
        <source>Show Boxplots</source>
        <translation>Zeige Boxplots</translation>
    </message>
    <message>
        <source>Hide Boxplots</source>
        <translation>Verbirg Boxplots</translation>
    </message>
    <message>
        <source>Visual</source>
        <translation>Visuell</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>Auditiv</translation>
    </message>
    <message>
        <source>the scatter graph</source>
        <translation>das Streudiagramm</translation>
    </message>
    <message>
        <source>the correlation scale</source>
        <translation>die Korrelationsskala</translation>
    </message>
    <message>
        <source>the box plots</source>
        <translation>die Boxplots</translation>
    </message>
    <message>
        <source>Comparison views</source>
        <translation>Ansichten des Vergleichs</translation>
    </message>
    <message>
        <source>Scatter graph</source>
        <translation>Streudiagramm</translation>
    </message>
    <message>
        <source>Correlation scale</source>
        <translation>Korrelationsskala</translation>
    </message>
    <message>
        <source>Box plots</source>
        <translation>Boxplots</translation>
    </message>
    <message>
        <source>Spearman&apos;s rank table</source>
        <translation>Tabelle der Rangkorrelation nach Spearman</translation>
    </message>
    <message>
        <source>Details of the visual box plot</source>
        <translation>Einzelheiten zum visuellen Boxplot</translation>
    </message>
    <message>
        <source>Details of the audio box plot</source>
        <translation>Einzelheiten zum auditiven Boxplot</translation>
    </message>
    <message numerus="yes">
        <source>Scatter graph of audio against visual reaction times, %n pairs, in hundredths of a second.</source>
        <translation>
            <numerusform>Streudiagramm der auditiven gegen die visuellen Reaktionszeiten, %n Paar, in Hundertstelsekunden.</numerusform>
            <numerusform>Streudiagramm der auditiven gegen die visuellen Reaktionszeiten, %n Paare, in Hundertstelsekunden.</numerusform>
        </translation>
    </message>
    <message>
        <source>The points are shown; their mean point is (%1, %2).</source>
        <translation>Die Punkte sind eingezeichnet; ihr Mittelwertpunkt ist (%1, %2).</translation>
    </message>
    <message>
        <source>Correlation scale from perfect negative correlation, -1, through no correlation, 0, to perfect positive correlation, 1.</source>
        <translation>Korrelationsskala von perfekter negativer Korrelation, -1, über keine Korrelation, 0, bis zu perfekter positiver Korrelation, 1.</translation>
    </message>
    <message>
        <source>The arrow marks Spearman&apos;s rank correlation coefficient r %1.</source>
        <translation>Der Pfeil zeigt den Rangkorrelationskoeffizienten nach Spearman, r %1.</translation>
    </message>
    <message numerus="yes">
        <source>Box plots of visual and audio reaction times, %n pairs, in hundredths of a second.</source>
        <translation>
            <numerusform>Boxplots der visuellen und auditiven Reaktionszeiten, %n Paar, in Hundertstelsekunden.</numerusform>
            <numerusform>Boxplots der visuellen und auditiven Reaktionszeiten, %n Paare, in Hundertstelsekunden.</numerusform>
        </translation>
    </message>
    <message>
        <source>Visual: %1.</source>
        <translation>Visuell: %1.</translation>
    </message>
    <message>
        <source>Audio: %1.</source>
        <translation>Auditiv: %1.</translation>
    </message>
</context>
<context>
    <name>CoreTexts</name>
    <message>
        <source>You currently have no recorded reaction times to analyse!</source>
        <translation>Du hast noch keine Reaktionszeiten aufgenommen, die ausgewertet werden könnten!</translation>
    </message>
    <message>
        <source>You need at least 3 recorded reation times to do this analysis.</source>
        <translation>Für diese Auswertung brauchst du mindestens 3 aufgenommene Reaktionszeiten.</translation>
    </message>
    <message>
        <source>lowest Value</source>
        <translation>Kleinster Wert</translation>
    </message>
    <message>
        <source>Highest Value</source>
        <translation>Größter Wert</translation>
    </message>
    <message>
        <source>Range</source>
        <translation>Spannweite</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>Mittelwert</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Modalwert</translation>
    </message>
    <message>
        <source>Median</source>
        <translation>Median</translation>
    </message>
    <message>
        <source>lower Quartile Q1</source>
        <translation>Unteres Quartil Q1</translation>
    </message>
    <message>
        <source>Upper Quartile Q3</source>
        <translation>Oberes Quartil Q3</translation>
    </message>
    <message>
        <source>Interquartile Range</source>
        <translation>Interquartilsabstand</translation>
    </message>
    <message>
        <source>Lower Outlier Calculation:</source>
        <translation>Untere Ausreißergrenze:</translation>
    </message>
    <message>
        <source>Upper Outlier Calculation:</source>
        <translation>Obere Ausreißergrenze:</translation>
    </message>
    <message>
        <source>Variance:</source>
        <translation>Varianz:</translation>
    </message>
    <message>
        <source>Standard Deviation:</source>
        <translation>Standardabweichung:</translation>
    </message>
    <message>
        <source>1/100 th</source>
        <translation>1/100</translation>
    </message>
    <message>
        <source>1/1000 th</source>
        <translation>1/1000</translation>
    </message>
    <message>
        <source>1/10000 th</source>
        <translation>1/10000</translation>
    </message>
    <message>
        <source>Sample Size (n) = </source>
        <translation>Stichprobenumfang (n) = </translation>
    </message>
    <message>
        <source>Estimated Mean = </source>
        <translation>Geschätzter Mittelwert = </translation>
    </message>
    <message>
        <source> to 2 d.p.</source>
        <translation> (auf 2 Dezimalstellen)</translation>
    </message>
    <message>
        <source>Visual(x)</source>
        <translation>Visuell(x)</translation>
    </message>
    <message>
        <source>Rank (Rx)</source>
        <translation>Rang (Rx)</translation>
    </message>
    <message>
        <source>Audio(y)</source>
        <translation>Auditiv(y)</translation>
    </message>
    <message>
        <source>Rank (Ry)</source>
        <translation>Rang (Ry)</translation>
    </message>
    <message>
        <source>d (Rx-Ry)</source>
        <translation>d (Rx-Ry)</translation>
    </message>
    <message>
        <source>d^2</source>
        <translation>d^2</translation>
    </message>
    <message>
        <source>Lowest value = </source>
        <translation>Kleinster Wert = </translation>
    </message>
    <message>
        <source>Lower Quartile = </source>
        <translation>Unteres Quartil = </translation>
    </message>
    <message>
        <source>Median = </source>
        <translation>Median = </translation>
    </message>
    <message>
        <source>Upper Quartile = </source>
        <translation>Oberes Quartil = </translation>
    </message>
    <message>
        <source>Highest value = </source>
        <translation>Größter Wert = </translation>
    </message>
    <message>
        <source>Details:</source>
        <translation>Einzelheiten:</translation>
    </message>
    <message>
        <source>Mean Data Point : (</source>
        <translation>Mittelwertpunkt : (</translation>
    </message>
    <message>
        <source>Scale represents 1/100 ths of a second</source>
        <translation>Skala in 1/100 Sekunden</translation>
    </message>
    <message>
        <source>All the times are equal, so there is no box to draw.</source>
        <translation>Alle Zeiten sind gleich, deshalb gibt es keinen Kasten zu zeichnen.</translation>
    </message>
    <message>
        <source>The times are spread too widely to draw at this precision; choose a coarser one, such as 1/100 th.</source>
        <translation>Die Zeiten streuen für diese Genauigkeit zu weit; wähle eine gröbere, zum Beispiel 1/100.</translation>
    </message>
    <message>
        <source>Key: 7|3 = 0.73 seconds</source>
        <translation>Schlüssel: 7|3 = 0.73 Sekunden</translation>
    </message>
    <message>
        <source>Run-time error &apos;</source>
        <translation>Laufzeitfehler &apos;</translation>
    </message>
    <message>
        <source>Invalid procedure call or argument</source>
        <translation>Ungültiger Prozeduraufruf oder ungültiges Argument</translation>
    </message>
    <message>
        <source>Overflow</source>
        <translation>Überlauf</translation>
    </message>
    <message>
        <source>Subscript out of range</source>
        <translation>Index außerhalb des gültigen Bereichs</translation>
    </message>
    <message>
        <source>Division by zero</source>
        <translation>Division durch null</translation>
    </message>
    <message>
        <source>Type mismatch</source>
        <translation>Typen unverträglich</translation>
    </message>
    <message>
        <source>Invalid property array index</source>
        <translation>Ungültiger Index für ein Eigenschaftenfeld</translation>
    </message>
    <message>
        <source>Application-defined or object-defined error</source>
        <translation>Anwendungs- oder objektdefinierter Fehler</translation>
    </message>
    <message>
        <source>no significant figure in </source>
        <translation>keine gültige Ziffer in </translation>
    </message>
    <message>
        <source>the scale&apos;s step is 0: the surface is too small</source>
        <translation>der Skalenschritt ist 0: die Zeichenfläche ist zu klein</translation>
    </message>
    <message>
        <source>Path/File access error</source>
        <translation>Fehler beim Zugriff auf Pfad/Datei</translation>
    </message>
    <message>
        <source>One of the collected times is empty or is not a number.</source>
        <translation>Eine der gesammelten Zeiten ist leer oder keine Zahl.</translation>
    </message>
    <message>
        <source>This sample has no audio times to compare.</source>
        <translation>Diese Stichprobe hat keine auditiven Zeiten zum Vergleichen.</translation>
    </message>
    <message>
        <source>This sample has fewer audio times than visual times, so some times have no partner to compare.</source>
        <translation>Diese Stichprobe hat weniger auditive als visuelle Zeiten, deshalb fehlt einigen Zeiten der Partner zum Vergleichen.</translation>
    </message>
    <message>
        <source>The audio list holds more times than the visual list, so the two lists don&apos;t match.</source>
        <translation>Die auditive Liste enthält mehr Zeiten als die visuelle, deshalb passen die beiden Listen nicht zusammen.</translation>
    </message>
    <message>
        <source>The times are too large, or too many, to add up at this precision; a coarser one may help.</source>
        <translation>Die Zeiten sind zu groß oder zu viele, um sie bei dieser Genauigkeit zu addieren; eine gröbere Genauigkeit kann helfen.</translation>
    </message>
    <message>
        <source>Spearman&apos;s rank needs at least two pairs of times.</source>
        <translation>Die Rangkorrelation nach Spearman braucht mindestens zwei Zeitpaare.</translation>
    </message>
    <message>
        <source>Reaction Time Data (*.rtd)</source>
        <translation>Reaktionszeitdaten (*.rtd)</translation>
    </message>
    <message>
        <source> Save the Reation Time Data as:</source>
        <translation> Reaktionszeitdaten speichern unter:</translation>
    </message>
    <message>
        <source> Select Reation Time Data to open:</source>
        <translation> Reaktionszeitdaten zum Öffnen wählen:</translation>
    </message>
    <message>
        <source>N/A</source>
        <translation>keiner</translation>
    </message>
    <message>
        <source>it is larger than </source>
        <translation>sie ist größer als </translation>
    </message>
    <message>
        <source>the file is not there</source>
        <translation>die Datei ist nicht vorhanden</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>es ist ein Ordner</translation>
    </message>
    <message>
        <source>it is not an ordinary file</source>
        <translation>es ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>the file can&apos;t be opened</source>
        <translation>die Datei lässt sich nicht öffnen</translation>
    </message>
    <message>
        <source>the file can&apos;t be read</source>
        <translation>die Datei lässt sich nicht lesen</translation>
    </message>
    <message>
        <source>it holds no wave sound the program can play</source>
        <translation>sie enthält keinen Wave-Ton, den das Programm abspielen kann</translation>
    </message>
</context>
<context>
    <name>CumulativeFrequency</name>
    <message>
        <source>Time (t)</source>
        <translation>Zeit (t)</translation>
    </message>
    <message>
        <source>CF</source>
        <translation>SH</translation>
    </message>
    <message>
        <source>time(t)</source>
        <translation>Zeit(t)</translation>
    </message>
    <message>
        <source> Freq </source>
        <translation> Häuf. </translation>
    </message>
    <message>
        <source>   CF   </source>
        <translation>   SH   </translation>
    </message>
</context>
<context>
    <name>DataColumn</name>
    <message>
        <source>Averaged Reation times</source>
        <translation>Gemittelte Zeiten</translation>
    </message>
    <message>
        <source>Data Collected:</source>
        <translation>Gesammelte Daten:</translation>
    </message>
    <message>
        <source>Remove Selected Result</source>
        <translation>Ergebnis löschen</translation>
    </message>
    <message>
        <source>Visual Data</source>
        <translation>Visuell</translation>
    </message>
    <message>
        <source>Audio Data</source>
        <translation>Auditiv</translation>
    </message>
    <message>
        <source>Please select an averaged reaction time to remove!</source>
        <translation>Bitte wähle eine gemittelte Reaktionszeit aus, die gelöscht werden soll!</translation>
    </message>
    <message>
        <source>No Time Selected</source>
        <translation>Keine Zeit ausgewählt</translation>
    </message>
    <message>
        <source>Data Collected: (</source>
        <translation>Gesammelte Daten: (</translation>
    </message>
    <message>
        <source>Visual reaction times</source>
        <translation>Visuelle Reaktionszeiten</translation>
    </message>
    <message>
        <source>Audio reaction times</source>
        <translation>Auditive Reaktionszeiten</translation>
    </message>
</context>
<context>
    <name>DataFiles</name>
    <message>
        <source>Settings Not Saved</source>
        <translation>Einstellungen nicht gespeichert</translation>
    </message>
    <message>
        <source>The settings file </source>
        <translation>Die Einstellungsdatei </translation>
    </message>
    <message>
        <source> could not be updated (</source>
        <translation> konnte nicht aktualisiert werden (</translation>
    </message>
    <message>
        <source>).
It is as it was; only the folder to start from next time is not remembered.</source>
        <translation>).
Sie ist unverändert; nur der Ordner, mit dem beim nächsten Mal begonnen wird, wird nicht gemerkt.</translation>
    </message>
    <message>
        <source>It asks for a number of characters or attempts that the program does not offer.</source>
        <translation>Sie verlangt eine Anzahl von Figuren oder Versuchen, die das Programm nicht anbietet.</translation>
    </message>
    <message>
        <source>It gives more data items than the program can hold.</source>
        <translation>Sie enthält mehr Daten, als das Programm aufnehmen kann.</translation>
    </message>
    <message>
        <source>A value in it can&apos;t be used.</source>
        <translation>Ein Wert darin ist nicht verwendbar.</translation>
    </message>
    <message>
        <source>The file </source>
        <translation>Die Datei </translation>
    </message>
    <message>
        <source> was not opened. </source>
        <translation> wurde nicht geöffnet. </translation>
    </message>
    <message>
        <source> The collected data are as they were.</source>
        <translation> Die gesammelten Daten sind unverändert.</translation>
    </message>
    <message>
        <source>You have not collected any reaction times to save!</source>
        <translation>Du hast noch keine Reaktionszeiten gesammelt, die gespeichert werden könnten!</translation>
    </message>
    <message>
        <source>No Data</source>
        <translation>Keine Daten</translation>
    </message>
    <message>
        <source>This file already exists!</source>
        <translation>Diese Datei gibt es schon!</translation>
    </message>
    <message>
        <source>Do you want to overwrite it?</source>
        <translation>Willst du sie überschreiben?</translation>
    </message>
    <message>
        <source>File Exist</source>
        <translation>Datei vorhanden</translation>
    </message>
    <message>
        <source>File Not Saved</source>
        <translation>Datei nicht gespeichert</translation>
    </message>
    <message>
        <source> could not be saved (</source>
        <translation> konnte nicht gespeichert werden (</translation>
    </message>
    <message>
        <source>).
A file of that name is as it was before, and the collected data are still here: save them somewhere else.</source>
        <translation>).
Eine Datei dieses Namens ist unverändert, und die gesammelten Daten sind noch da: speichere sie an einem anderen Ort.</translation>
    </message>
    <message>
        <source>You have Collected Data that has not yet been saved!</source>
        <translation>Du hast gesammelte Daten, die noch nicht gespeichert sind!</translation>
    </message>
    <message>
        <source>Opening a file will remove this data</source>
        <translation>Wenn du eine Datei öffnest, gehen diese Daten verloren</translation>
    </message>
    <message>
        <source>Do you wish to continue?</source>
        <translation>Möchtest du fortfahren?</translation>
    </message>
    <message>
        <source>Open a file</source>
        <translation>Datei öffnen</translation>
    </message>
    <message>
        <source> can&apos;t be opened: </source>
        <translation> kann nicht geöffnet werden: </translation>
    </message>
    <message>
        <source>.
The collected data are as they were.</source>
        <translation>.
Die gesammelten Daten sind unverändert.</translation>
    </message>
</context>
<context>
    <name>DataFlows</name>
    <message>
        <source>You have not collected any reaction times to export!</source>
        <translation>Du hast noch keine Reaktionszeiten zum Exportieren gesammelt!</translation>
    </message>
    <message>
        <source>No Data</source>
        <translation>Keine Daten</translation>
    </message>
    <message>
        <source>The file %1 could not be written (%2).</source>
        <translation>Die Datei %1 konnte nicht geschrieben werden (%2).</translation>
    </message>
    <message>
        <source>Not Exported</source>
        <translation>Nicht exportiert</translation>
    </message>
    <message>
        <source>You have Collected Data that has not yet been saved!</source>
        <translation>Du hast gesammelte Daten, die noch nicht gespeichert sind!</translation>
    </message>
    <message>
        <source>Importing a file will remove this data</source>
        <translation>Beim Importieren einer Datei gehen diese Daten verloren</translation>
    </message>
    <message>
        <source>Do you wish to continue?</source>
        <translation>Möchtest du fortfahren?</translation>
    </message>
    <message>
        <source>Import a file</source>
        <translation>Datei importieren</translation>
    </message>
    <message>
        <source>Nothing was imported from %1:</source>
        <translation>Aus %1 wurde nichts importiert:</translation>
    </message>
    <message>
        <source>Add a class file</source>
        <translation>Klassendatei hinzufügen</translation>
    </message>
    <message>
        <source>Averages</source>
        <translation>Mittelwerte</translation>
    </message>
    <message>
        <source>Grouped Data</source>
        <translation>Klassierte Daten</translation>
    </message>
    <message>
        <source>Compare visual and audio</source>
        <translation>Visuell und akustisch vergleichen</translation>
    </message>
    <message>
        <source>Open the Averages, Groups or Compare page to print its worksheet.</source>
        <translation>Öffne die Seite Mittelwerte, Klassen oder Vergleich, um ihr Arbeitsblatt zu drucken.</translation>
    </message>
    <message>
        <source>Worksheet</source>
        <translation>Arbeitsblatt</translation>
    </message>
    <message>
        <source>Leave the hidden answers blank, for pupils to fill in?</source>
        <translation>Die verdeckten Antworten für die Schüler zum Ausfüllen leer lassen?</translation>
    </message>
    <message>
        <source>The worksheet was not printed (%1).</source>
        <translation>Das Arbeitsblatt wurde nicht gedruckt (%1).</translation>
    </message>
    <message>
        <source>PDF document (*.pdf)</source>
        <translation>PDF-Dokument (*.pdf)</translation>
    </message>
    <message>
        <source> Save the worksheet as:</source>
        <translation> Das Arbeitsblatt speichern unter:</translation>
    </message>
</context>
<context>
    <name>EstimatedMeanTable</name>
    <message>
        <source>Time (t)</source>
        <translation>Zeit (t)</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>Häufigkeit</translation>
    </message>
    <message>
        <source>Mid (t)</source>
        <translation>Mitte (t)</translation>
    </message>
    <message>
        <source>f x Mid(t)</source>
        <translation>f x Mitte(t)</translation>
    </message>
</context>
<context>
    <name>GroupsPage</name>
    <message>
        <source>Current Data to 1/100 th of a second:</source>
        <translation>Aktuelle Daten in 1/100 Sekunden:</translation>
    </message>
    <message>
        <source>Sort Data:</source>
        <translation>Sortieren:</translation>
    </message>
    <message>
        <source>Grouped Data</source>
        <translation>Klassierte Daten</translation>
    </message>
    <message>
        <source>Estimated Mean</source>
        <translation>Geschätzter Mittelwert</translation>
    </message>
    <message>
        <source>Cumulative Frequency (CF)</source>
        <translation>Summenhäufigkeit (SH)</translation>
    </message>
    <message>
        <source>CF Plot</source>
        <translation>SH-Kurve</translation>
    </message>
    <message>
        <source>Tally/Frequency</source>
        <translation>Strichliste</translation>
    </message>
    <message>
        <source>Results</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>CF</source>
        <translation>SH</translation>
    </message>
    <message>
        <source>Plot</source>
        <translation>Kurve</translation>
    </message>
    <message>
        <source>Show Quartiles</source>
        <translation>Zeige Quartile</translation>
    </message>
    <message>
        <source>Hide %1</source>
        <translation>Verbirg %1</translation>
    </message>
    <message>
        <source>Show %1</source>
        <translation>Zeige %1</translation>
    </message>
    <message>
        <source>the tally and frequency table</source>
        <translation>die Strichliste mit Häufigkeiten</translation>
    </message>
    <message>
        <source>the estimated mean table</source>
        <translation>die Tabelle des geschätzten Mittelwerts</translation>
    </message>
    <message>
        <source>the cumulative frequency table</source>
        <translation>die Tabelle der Summenhäufigkeiten</translation>
    </message>
    <message>
        <source>the cumulative frequency plot</source>
        <translation>die Summenhäufigkeitskurve</translation>
    </message>
    <message>
        <source>Sort data</source>
        <translation>Daten sortieren</translation>
    </message>
    <message>
        <source>Grouped data views</source>
        <translation>Ansichten der klassierten Daten</translation>
    </message>
    <message>
        <source>Tally and frequency table</source>
        <translation>Strichliste und Häufigkeitstabelle</translation>
    </message>
    <message>
        <source>Estimated mean table</source>
        <translation>Tabelle des geschätzten Mittelwerts</translation>
    </message>
    <message>
        <source>Cumulative frequency table</source>
        <translation>Tabelle der Summenhäufigkeiten</translation>
    </message>
    <message>
        <source>Cumulative frequency plot</source>
        <translation>Summenhäufigkeitskurve</translation>
    </message>
    <message numerus="yes">
        <source>%n classes from %1 to %2.</source>
        <translation>
            <numerusform>%n Klasse von %1 bis %2.</numerusform>
            <numerusform>%n Klassen von %1 bis %2.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1: midpoint %2 times frequency %3 is %4</source>
        <translation>%1: Klassenmitte %2 mal Häufigkeit %3 ist %4</translation>
    </message>
    <message>
        <source>(%1, %2)</source>
        <translation>(%1, %2)</translation>
    </message>
    <message>
        <source>Frequencies: %1.</source>
        <translation>Häufigkeiten: %1.</translation>
    </message>
    <message>
        <source>Total frequency %1, total of the products %2.</source>
        <translation>Summe der Häufigkeiten %1, Summe der Produkte %2.</translation>
    </message>
    <message>
        <source>Cumulative frequencies: %1.</source>
        <translation>Summenhäufigkeiten: %1.</translation>
    </message>
    <message>
        <source>Points of the curve, time and cumulative frequency: %1.</source>
        <translation>Punkte der Kurve, Zeit und Summenhäufigkeit: %1.</translation>
    </message>
    <message>
        <source>median</source>
        <translation>Median</translation>
    </message>
    <message>
        <source>lower quartile</source>
        <translation>unteres Quartil</translation>
    </message>
    <message>
        <source>upper quartile</source>
        <translation>oberes Quartil</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>Read from the curve: %1.</source>
        <translation>An der Kurve abgelesen: %1.</translation>
    </message>
</context>
<context>
    <name>MainFrm</name>
    <message>
        <source>Open Data File.</source>
        <translation>Datendatei öffnen.</translation>
    </message>
    <message>
        <source>New Data File (clear data)</source>
        <translation>Neue Datendatei (Daten löschen)</translation>
    </message>
    <message>
        <source>Save Data File</source>
        <translation>Datendatei speichern</translation>
    </message>
    <message>
        <source>Record Zorvane reaction times</source>
        <translation>Zorvane-Reaktionszeiten aufnehmen</translation>
    </message>
    <message>
        <source>Averages and Ranges</source>
        <translation>Mittelwerte und Streuung</translation>
    </message>
    <message>
        <source>Grouped Data</source>
        <translation>Klassierte Daten</translation>
    </message>
    <message>
        <source>Compare visual and audio</source>
        <translation>Visuell und auditiv vergleichen</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über das Programm</translation>
    </message>
    <message>
        <source>The setting could not be kept in %1 (%2).
It holds until the program ends.</source>
        <translation>Die Einstellung konnte nicht in %1 gespeichert werden (%2).
Sie gilt bis zum Ende des Programms.</translation>
    </message>
    <message>
        <source>Settings Not Saved</source>
        <translation>Einstellungen nicht gespeichert</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>Daten</translation>
    </message>
    <message>
        <source>Export to CSV...	Ctrl+E</source>
        <translation>Als CSV exportieren...	Strg+E</translation>
    </message>
    <message>
        <source>Import from CSV...</source>
        <translation>Aus CSV importieren...</translation>
    </message>
    <message>
        <source>Add a Class File...</source>
        <translation>Klassendatei hinzufügen...</translation>
    </message>
    <message>
        <source>Print Worksheet...	Ctrl+P</source>
        <translation>Arbeitsblatt drucken...	Strg+P</translation>
    </message>
    <message>
        <source>Save Worksheet as PDF...</source>
        <translation>Arbeitsblatt als PDF speichern...</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>The choice could not be kept in %1.</source>
        <translation>Die Wahl konnte nicht in %1 gespeichert werden.</translation>
    </message>
    <message>
        <source>The program speaks %1 from its next start.</source>
        <translation>Das Programm spricht %1 ab dem nächsten Start.</translation>
    </message>
</context>
<context>
    <name>MainMod1</name>
    <message>
        <source>This software failed to create the file </source>
        <translation>Dieses Programm konnte die Datei nicht anlegen: </translation>
    </message>
    <message>
        <source>This file is required by the program for saving settings</source>
        <translation>Das Programm braucht diese Datei, um Einstellungen zu speichern</translation>
    </message>
    <message>
        <source>Please create an empty text file and save it as </source>
        <translation>Bitte lege eine leere Textdatei an, speichere sie als </translation>
    </message>
    <message>
        <source> in the My Documents folder then restart the program.</source>
        <translation> im Ordner „Dokumente“ und starte das Programm neu.</translation>
    </message>
    <message>
        <source>The settings file </source>
        <translation>Die Einstellungsdatei </translation>
    </message>
    <message>
        <source> can&apos;t be read: </source>
        <translation> kann nicht gelesen werden: </translation>
    </message>
    <message>
        <source>.
The program starts with its own settings and sounds and does not change that file.</source>
        <translation>.
Das Programm startet mit seinen eigenen Einstellungen und Tönen und ändert diese Datei nicht.</translation>
    </message>
    <message>
        <source>Can&apos;t find ini file</source>
        <translation>Ini-Datei nicht gefunden</translation>
    </message>
</context>
<context>
    <name>MsgBox</name>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Nein</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>RecordPage</name>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Average Reaction time</source>
        <translation>Durchschnittliche Reaktionszeit</translation>
    </message>
    <message>
        <source>Add Result</source>
        <translation>Übernehmen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Reaction Times:</source>
        <translation>Reaktionszeiten:</translation>
    </message>
    <message>
        <source>Number of Zorvanes:</source>
        <translation>Anzahl der Zorvanes:</translation>
    </message>
    <message>
        <source>Number of attempts:</source>
        <translation>Anzahl der Versuche:</translation>
    </message>
    <message>
        <source>Compare visual &amp;&amp; audio</source>
        <translation>Visuell &amp;&amp; auditiv vergleichen</translation>
    </message>
    <message>
        <source>Compare visual &amp; audio</source>
        <translation>Visuell &amp; auditiv vergleichen</translation>
    </message>
    <message>
        <source>Average Reaction time </source>
        <translation>Durchschnittliche Reaktionszeit </translation>
    </message>
    <message>
        <source> seconds</source>
        <translation> Sekunden</translation>
    </message>
    <message>
        <source>Far too slow please try again!</source>
        <translation>Viel zu langsam, bitte versuche es noch einmal!</translation>
    </message>
    <message>
        <source>Respond with the space bar</source>
        <translation>Mit der Leertaste antworten</translation>
    </message>
    <message>
        <source>(by space bar)</source>
        <translation>(mit Leertaste)</translation>
    </message>
    <message>
        <source>Ready? Press Start, then click a Zorvane as soon as it pops up!</source>
        <translation>Bereit? Drücke auf Start und klicke auf einen Zorvane, sobald er auftaucht!</translation>
    </message>
    <message>
        <source>Reaction times of this run</source>
        <translation>Reaktionszeiten dieses Durchgangs</translation>
    </message>
    <message>
        <source>Number of Zorvanes</source>
        <translation>Anzahl der Zorvanes</translation>
    </message>
    <message>
        <source>Number of attempts</source>
        <translation>Anzahl der Versuche</translation>
    </message>
    <message>
        <source>Zorvane %1</source>
        <translation>Zorvane %1</translation>
    </message>
</context>
<context>
    <name>ScatterGraph</name>
    <message>
        <source>Audio</source>
        <translation>Auditiv</translation>
    </message>
    <message>
        <source>Visual</source>
        <translation>Visuell</translation>
    </message>
</context>
<context>
    <name>SoundBas</name>
    <message>
        <source>
The sound file </source>
        <translation>
Die Tondatei </translation>
    </message>
    <message>
        <source> named by </source>
        <translation>, angegeben unter </translation>
    </message>
    <message>
        <source> can&apos;t be used: </source>
        <translation>, ist nicht verwendbar: </translation>
    </message>
    <message>
        <source>. The program&apos;s own sound is played instead.</source>
        <translation>. Stattdessen wird der eigene Ton des Programms gespielt.</translation>
    </message>
</context>
<context>
    <name>TallyChart</name>
    <message>
        <source>Time (t)</source>
        <translation>Zeit (t)</translation>
    </message>
    <message>
        <source>Tally</source>
        <translation>Strichliste</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>Häufigkeit</translation>
    </message>
</context>
<context>
    <name>msgFrm</name>
    <message>
        <source>Create a Link</source>
        <translation>Verknüpfung anlegen</translation>
    </message>
    <message>
        <source>Auto Timed Msgbox</source>
        <translation>Meldung mit Zeitablauf</translation>
    </message>
    <message>
        <source>This message will automatically close in </source>
        <translation>Diese Meldung schließt sich von selbst in </translation>
    </message>
    <message>
        <source>Enter the File or URL to create a link with:</source>
        <translation>Gib die Datei oder URL ein, zu der eine Verknüpfung angelegt werden soll:</translation>
    </message>
    <message>
        <source>Enter a name for this link:</source>
        <translation>Gib einen Namen für diese Verknüpfung ein:</translation>
    </message>
    <message>
        <source> Select the file to create a link for :</source>
        <translation> Wähle die Datei für die Verknüpfung:</translation>
    </message>
    <message>
        <source>All file types (*)</source>
        <translation>Alle Dateitypen (*)</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Ignore</source>
        <translation>Ignorieren</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source> second.</source>
        <translation> Sekunde.</translation>
    </message>
    <message>
        <source> seconds.</source>
        <translation> Sekunden.</translation>
    </message>
    <message>
        <source>You must enter a valid file path or a correctly formatted URL.</source>
        <translation>Du musst einen gültigen Dateipfad oder eine richtig geschriebene URL eingeben.</translation>
    </message>
    <message>
        <source>Invalid Filename</source>
        <translation>Ungültiger Dateiname</translation>
    </message>
    <message>
        <source>You must enter a Name for the link</source>
        <translation>Du musst einen Namen für die Verknüpfung eingeben</translation>
    </message>
    <message>
        <source>Invalid name</source>
        <translation>Ungültiger Name</translation>
    </message>
</context>
<context>
    <name>zrt::ChartPictureMenu</name>
    <message>
        <source>Save Picture as &amp;PNG...</source>
        <translation>Bild als &amp;PNG speichern...</translation>
    </message>
    <message>
        <source>Save Picture as PNG at &amp;Double Size...</source>
        <translation>Bild als PNG in &amp;doppelter Größe speichern...</translation>
    </message>
    <message>
        <source>Save Picture as &amp;SVG...</source>
        <translation>Bild als &amp;SVG speichern...</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>SVG picture (*.svg)</source>
        <translation>SVG-Bild (*.svg)</translation>
    </message>
    <message>
        <source>PNG picture (*.png)</source>
        <translation>PNG-Bild (*.png)</translation>
    </message>
    <message>
        <source> Save the picture of %1 as:</source>
        <translation> Das Bild von %1 speichern unter:</translation>
    </message>
    <message>
        <source>The picture could not be saved as %1:
%2</source>
        <translation>Das Bild konnte nicht als %1 gespeichert werden:
%2</translation>
    </message>
    <message>
        <source>Picture Not Saved</source>
        <translation>Bild nicht gespeichert</translation>
    </message>
</context>
</TS>
