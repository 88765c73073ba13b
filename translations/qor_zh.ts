<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
  <context>
    <name>qor</name>
    <message>
      <source>%1 von %2</source>
      <translation>%1 / %2</translation>
    </message>
    <message>
      <source>%1 von %2 Punkten</source>
      <translation>%1 / %2 点</translation>
    </message>
    <message>
      <source>&amp;Ja</source>
      <translation>是(&amp;Y)</translation>
    </message>
    <message>
      <source>&amp;Nein</source>
      <translation>否(&amp;N)</translation>
    </message>
    <message>
      <source>--- Frequenz ---</source>
      <translation>--- 频率 ---</translation>
    </message>
    <message>
      <source>--- fIM/dBm ---</source>
      <translation>--- fIM/dBm ---</translation>
    </message>
    <message>
      <source>----- Alarm Niveau------</source>
      <translation>----- 告警限值 -----</translation>
    </message>
    <message>
      <source>----- Marker 1 ------</source>
      <translation>----- 标记 1 -----</translation>
    </message>
    <message>
      <source>----- Marker 2 ------</source>
      <translation>----- 标记 2 -----</translation>
    </message>
    <message>
      <source>----- Marker 3 ------</source>
      <translation>----- 标记 3 -----</translation>
    </message>
    <message>
      <source>0 bis 127</source>
      <translation>0 至 127</translation>
    </message>
    <message>
      <source>0 bis 1270</source>
      <translation>0 至 1270</translation>
    </message>
    <message>
      <source>1 bis 30 s</source>
      <translation>1 至 30 秒</translation>
    </message>
    <message>
      <source>1. Password is needless for Operator mode.</source>
      <translation>1. 操作员模式无需密码。</translation>
    </message>
    <message>
      <source>2 Ton Modell</source>
      <translation>点频模式</translation>
    </message>
    <message>
      <source>2 Ton(&amp;2)</source>
      <translation>点频(&amp;2)</translation>
    </message>
    <message>
      <source>2 Tone</source>
      <translation>点频</translation>
    </message>
    <message>
      <source>2 Tone Mode Set</source>
      <translation>点频模式设置</translation>
    </message>
    <message>
      <source>2 Tone time (Sec.):</source>
      <translation>双音时间 (秒)：</translation>
    </message>
    <message>
      <source>2. Please modify password for adminitrator mode, please type "740261" in "old password" field if no old password.</source>
      <translation>2. 请修改管理员模式的密码；如果没有旧密码，请在“旧密码”栏中输入“740261”。</translation>
    </message>
    <message>
      <source>20 bis 47 dBm</source>
      <translation>20 至 47 dBm</translation>
    </message>
    <message>
      <source>&lt;&lt;&lt;2-Ton&gt;&gt;&gt;</source>
      <translation>&lt;&lt;&lt;点频&gt;&gt;&gt;</translation>
    </message>
    <message>
      <source>&lt;&lt;Oben Scannen&gt;&gt;</source>
      <translation>&lt;&lt;上扫&gt;&gt;</translation>
    </message>
    <message>
      <source>&lt;The graph is invalid for official report as it's not loaded from DAT file&gt;</source>
      <translation>&lt;曲线并非来自 DAT 文件，不能用于正式报告&gt;</translation>
    </message>
    <message>
      <source>&lt;Unter Scannen&gt;</source>
      <translation>&lt;&lt;下扫&gt;&gt;</translation>
    </message>
    <message>
      <source>A result between bands cannot be shown.</source>
      <translation>频段间的结果无法显示。</translation>
    </message>
    <message>
      <source>AMPS Einbauen</source>
      <translation>AMPS 设置</translation>
    </message>
    <message>
      <source>AWS Setup</source>
      <translation>AWS 设置</translation>
    </message>
    <message>
      <source>Abbestellen</source>
      <translation>取消</translation>
    </message>
    <message>
      <source>Abbrechen</source>
      <translation>取消</translation>
    </message>
    <message>
      <source>Abstand dB</source>
      <translation>裕量 dB</translation>
    </message>
    <message>
      <source>Abtasten Nummer(1-10):</source>
      <translation>扫频次数（1-10）：</translation>
    </message>
    <message>
      <source>Addieren</source>
      <translation>添加</translation>
    </message>
    <message>
      <source>Addieren Anmerkung</source>
      <translation>添加备注</translation>
    </message>
    <message>
      <source>Addieren Anmerkung(&amp;C)</source>
      <translation>添加备注(&amp;C)</translation>
    </message>
    <message>
      <source>Address:</source>
      <translation>地址：</translation>
    </message>
    <message>
      <source>Administrator Mode</source>
      <translation>管理员模式</translation>
    </message>
    <message>
      <source>Administrator/Operator Mode Enable(&amp;E)</source>
      <translation>启用管理员/操作员模式(&amp;O)</translation>
    </message>
    <message>
      <source>Adresse(&amp;D)</source>
      <translation>地址(&amp;D)</translation>
    </message>
    <message>
      <source>Adresse, 0 bis 255</source>
      <translation>地址，0 至 255</translation>
    </message>
    <message>
      <source>Aisa Pacific</source>
      <translation>亚太</translation>
    </message>
    <message>
      <source>Aktivitaet</source>
      <translation>活力</translation>
    </message>
    <message>
      <source>Alarm Einbauen</source>
      <translation>告警设置</translation>
    </message>
    <message>
      <source>Alarm Niveau</source>
      <translation>告警限值</translation>
    </message>
    <message>
      <source>Alarm Oeffnen/Schliessen</source>
      <translation>告警开/关</translation>
    </message>
    <message>
      <source>Alarm Stempel Oeffnen/Schliessen</source>
      <translation>通过/失败标识开/关</translation>
    </message>
    <message>
      <source>Alarm(&amp;A)</source>
      <translation>告警(&amp;A)</translation>
    </message>
    <message>
      <source>Alle passenden Dateien</source>
      <translation>所有匹配的文件</translation>
    </message>
    <message>
      <source>America</source>
      <translation>美洲</translation>
    </message>
    <message>
      <source>Anfang f1:</source>
      <translation>起始 f1：</translation>
    </message>
    <message>
      <source>Anfang f2:</source>
      <translation>起始 f2：</translation>
    </message>
    <message>
      <source>Anfang/Ende f1 falsch!!!</source>
      <translation>起始/终止 f1 错误！</translation>
    </message>
    <message>
      <source>Anfang/Ende f2 falsch!!!</source>
      <translation>起始/终止 f2 错误！</translation>
    </message>
    <message>
      <source>Anfang:</source>
      <translation>上限：</translation>
    </message>
    <message>
      <source>Anmerkung:</source>
      <translation>备注：</translation>
    </message>
    <message>
      <source>Anschaulich</source>
      <translation>鲜明</translation>
    </message>
    <message>
      <source>Anschluss des Geraets</source>
      <translation>仪器端口</translation>
    </message>
    <message>
      <source>Anschluss suchen, oeffnen oder schliessen</source>
      <translation>搜索、打开或关闭端口</translation>
    </message>
    <message>
      <source>Ansehend QOR</source>
      <translation>关于 QOR</translation>
    </message>
    <message>
      <source>Ansehend QOR(&amp;H)</source>
      <translation>关于 QOR(&amp;A)</translation>
    </message>
    <message>
      <source>Antwort:</source>
      <translation>应答:</translation>
    </message>
    <message>
      <source>Antworten von drei:</source>
      <translation>三次应答中收到：</translation>
    </message>
    <message>
      <source>Anzeige loeschen</source>
      <translation>清除显示</translation>
    </message>
    <message>
      <source>Anzeige(&amp;Z)</source>
      <translation>显示(&amp;D)</translation>
    </message>
    <message>
      <source>Asche</source>
      <translation>灰色</translation>
    </message>
    <message>
      <source>Auf Bestellung Anfertigen</source>
      <translation>自定义</translation>
    </message>
    <message>
      <source>Auf Bestellung Anfertigen...</source>
      <translation>自定义...</translation>
    </message>
    <message>
      <source>Auf den hoechsten Punkt</source>
      <translation>移到最高点</translation>
    </message>
    <message>
      <source>Auf der fallenden Kurve</source>
      <translation>在下扫曲线上</translation>
    </message>
    <message>
      <source>Auf der steigenden Kurve</source>
      <translation>在上扫曲线上</translation>
    </message>
    <message>
      <source>Ausschalten Port</source>
      <translation>关闭端口</translation>
    </message>
    <message>
      <source>Ausserhalb von -99.9 bis 9.9 dB, zaehlt als 0:</source>
      <translation>超出 -99.9 至 9.9 dB，按 0 处理：</translation>
    </message>
    <message>
      <source>Auswaehlen Breite</source>
      <translation>请选择频段</translation>
    </message>
    <message>
      <source>Auswaehlen COM Port:</source>
      <translation>选择 COM 端口：</translation>
    </message>
    <message>
      <source>Auswaehlen IM</source>
      <translation>请选择互调阶数</translation>
    </message>
    <message>
      <source>Auswaehlen Messung modell</source>
      <translation>请选择测量模式</translation>
    </message>
    <message>
      <source>Auswaehlen Uebergeben modell oder reflex modell.</source>
      <translation>请选择传输模式或反射模式。</translation>
    </message>
    <message>
      <source>Auto Save Namen(&amp;N)</source>
      <translation>自动保存名称(&amp;N)</translation>
    </message>
    <message>
      <source>Auto Save On/Off(&amp;A)</source>
      <translation>自动保存开/关(&amp;A)</translation>
    </message>
    <message>
      <source>Auto Save Setup</source>
      <translation>自动保存设置</translation>
    </message>
    <message>
      <source>Befehl an das Geraet, wie er getippt ist; mit der Pfeiltaste nach oben die frueheren</source>
      <translation>原样发送给仪器的命令；按向上键可调出以前的命令</translation>
    </message>
    <message>
      <source>Beginnen Messung</source>
      <translation>开始测量</translation>
    </message>
    <message>
      <source>Begonnene Zyklen; einer mehr als verlangt beendet den Test</source>
      <translation>已开始的周期；比要求多一个时测试结束</translation>
    </message>
    <message>
      <source>Bereich Log(&amp;D)</source>
      <translation>电平范围(&amp;R)</translation>
    </message>
    <message>
      <source>Bereich: 0-9.9</source>
      <translation>范围：0-9.9</translation>
    </message>
    <message>
      <source>Bereit</source>
      <translation>就绪</translation>
    </message>
    <message>
      <source>Beschaedigt, zaehlt als nicht vorhanden:</source>
      <translation>已损坏，视为不存在：</translation>
    </message>
    <message>
      <source>Bilden</source>
      <translation>曲线</translation>
    </message>
    <message>
      <source>Bilden 1</source>
      <translation>曲线 1</translation>
    </message>
    <message>
      <source>Bilden 10</source>
      <translation>曲线 10</translation>
    </message>
    <message>
      <source>Bilden 2</source>
      <translation>曲线 2</translation>
    </message>
    <message>
      <source>Bilden 3</source>
      <translation>曲线 3</translation>
    </message>
    <message>
      <source>Bilden 4</source>
      <translation>曲线 4</translation>
    </message>
    <message>
      <source>Bilden 5</source>
      <translation>曲线 5</translation>
    </message>
    <message>
      <source>Bilden 6</source>
      <translation>曲线 6</translation>
    </message>
    <message>
      <source>Bilden 7</source>
      <translation>曲线 7</translation>
    </message>
    <message>
      <source>Bilden 8</source>
      <translation>曲线 8</translation>
    </message>
    <message>
      <source>Bilden 9</source>
      <translation>曲线 9</translation>
    </message>
    <message>
      <source>Bilden(&amp;B)</source>
      <translation>曲线(&amp;T)</translation>
    </message>
    <message>
      <source>Bilden...</source>
      <translation>曲线编号...</translation>
    </message>
    <message>
      <source>Bilden:</source>
      <translation>曲线：</translation>
    </message>
    <message>
      <source>Bitte eine Adresse eingeben.</source>
      <translation>请输入地址。</translation>
    </message>
    <message>
      <source>Bitte eine ganze Zahl eingeben, hoechstens:</source>
      <translation>请输入整数，最大为</translation>
    </message>
    <message>
      <source>Bitte zuerst einen Port auswaehlen.</source>
      <translation>请先选择端口。</translation>
    </message>
    <message>
      <source>Breite(&amp;B)</source>
      <translation>频段(&amp;B)</translation>
    </message>
    <message>
      <source>Breite/Power(&amp;B)</source>
      <translation>频段/功率(&amp;B)</translation>
    </message>
    <message>
      <source>Breite:</source>
      <translation>宽度：</translation>
    </message>
    <message>
      <source>Browse...</source>
      <translation>浏览...</translation>
    </message>
    <message>
      <source>Cable Loss For Rx</source>
      <translation>接收电缆损耗</translation>
    </message>
    <message>
      <source>Cable loss for Rx:</source>
      <translation>接收线缆损耗：</translation>
    </message>
    <message>
      <source>Calculate</source>
      <translation>换算</translation>
    </message>
    <message>
      <source>Calibration</source>
      <translation>校准</translation>
    </message>
    <message>
      <source>Calibration finished!</source>
      <translation>校准完成！</translation>
    </message>
    <message>
      <source>Calibration finished.</source>
      <translation>校准完成。</translation>
    </message>
    <message>
      <source>Can not open a session to the device.</source>
      <translation>无法打开与设备的会话。</translation>
    </message>
    <message>
      <source>Can not set attribute to the device.</source>
      <translation>无法设置设备属性。</translation>
    </message>
    <message>
      <source>Can not setup Alarm.</source>
      <translation>无法设置告警。</translation>
    </message>
    <message>
      <source>Can not setup DIG-DIV.</source>
      <translation>无法设置 DIG-DIV。</translation>
    </message>
    <message>
      <source>Can not setup LTE 700 L.</source>
      <translation>无法设置 LTE 700 L。</translation>
    </message>
    <message>
      <source>Can not setup LTE 700 U.</source>
      <translation>无法设置 LTE 700 U。</translation>
    </message>
    <message>
      <source>Can not setup Marker.</source>
      <translation>无法设置标记。</translation>
    </message>
    <message>
      <source>Cannot connect to device for incorrect port, please select correct port!</source>
      <translation>端口不正确，无法连接仪器，请选择正确的端口！</translation>
    </message>
    <message>
      <source>Center_Freq (MHz):</source>
      <translation>中心频率 (MHz):</translation>
    </message>
    <message>
      <source>Check and do calibration again.</source>
      <translation>请检查后重新校准。</translation>
    </message>
    <message>
      <source>Check power meter sensor.</source>
      <translation>请检查功率计探头。</translation>
    </message>
    <message>
      <source>Chinese</source>
      <translation>中文</translation>
    </message>
    <message>
      <source>Clear screen</source>
      <translation>清除屏幕</translation>
    </message>
    <message>
      <source>Command Response:</source>
      <translation>命令回应：</translation>
    </message>
    <message>
      <source>Command line</source>
      <translation>命令行</translation>
    </message>
    <message>
      <source>Communicate with R&amp;S Spectrum Analyzer failed.</source>
      <translation>与 R&amp;S 频谱分析仪通信失败。</translation>
    </message>
    <message>
      <source>Compensation(&amp;C)</source>
      <translation>补偿(&amp;C)</translation>
    </message>
    <message>
      <source>Confirm the Password:</source>
      <translation>确认密码：</translation>
    </message>
    <message>
      <source>Continuous Measurement Enable</source>
      <translation>启用连续测量</translation>
    </message>
    <message>
      <source>Continuous Measurement Setup</source>
      <translation>连续测量设置</translation>
    </message>
    <message>
      <source>Could not open a session to the VISA Resource Manager!</source>
      <translation>无法打开与 VISA 资源管理器的会话!</translation>
    </message>
    <message>
      <source>Create Config File</source>
      <translation>生成配置文件</translation>
    </message>
    <message>
      <source>DAT</source>
      <translation>DAT</translation>
    </message>
    <message>
      <source>DCS Einbauen</source>
      <translation>DCS 设置</translation>
    </message>
    <message>
      <source>DIG-DIV Setup</source>
      <translation>DIG-DIV 设置</translation>
    </message>
    <message>
      <source>Darstellung(&amp;A)</source>
      <translation>外观(&amp;A)</translation>
    </message>
    <message>
      <source>Das Geraet hat die Einstellungen nicht angenommen.</source>
      <translation>仪器未接受这些设置。</translation>
    </message>
    <message>
      <source>Das Geraet hat einen Befehl abgelehnt: Die Kalibrierung ist zu Ende.</source>
      <translation>仪器拒绝了命令：校准已结束。</translation>
    </message>
    <message>
      <source>Das Geraet hat nicht alle Stellen der Sicherung beantwortet:</source>
      <translation>仪器没有应答备份中的所有位置：</translation>
    </message>
    <message>
      <source>Das Umschaltgeraet hat keine Stellung fuer diese Breite:</source>
      <translation>频段切换单元没有此频段的位置：</translation>
    </message>
    <message>
      <source>Das Umschaltgeraet hat nicht geantwortet, seine Relais koennen falsch stehen.</source>
      <translation>频段切换单元没有应答，其继电器位置可能不正确。</translation>
    </message>
    <message>
      <source>Das ist das Umschaltgeraet, nicht der Analysator.</source>
      <translation>这是频段切换单元，不是分析仪。</translation>
    </message>
    <message>
      <source>Das ist keine Sicherung eines Speichers, oder sie ist beschaedigt.</source>
      <translation>这不是存储器备份，或文件已损坏。</translation>
    </message>
    <message>
      <source>Das wird geschrieben (Adresse: jetzt -&gt; neu):</source>
      <translation>将写入以下内容（地址：现值 -&gt; 新值）：</translation>
    </message>
    <message>
      <source>Datei (PDF)</source>
      <translation>文件 (PDF)</translation>
    </message>
    <message>
      <source>Datei(&amp;D)</source>
      <translation>文件(&amp;F)</translation>
    </message>
    <message>
      <source>Datei:</source>
      <translation>文件:</translation>
    </message>
    <message>
      <source>Dateien ohne Bericht:</source>
      <translation>未生成报告的文件：</translation>
    </message>
    <message>
      <source>Dateiname:</source>
      <translation>文件名：</translation>
    </message>
    <message>
      <source>Dateityp:</source>
      <translation>文件类型：</translation>
    </message>
    <message>
      <source>Datenordner:</source>
      <translation>数据文件夹：</translation>
    </message>
    <message>
      <source>Datum</source>
      <translation>日期</translation>
    </message>
    <message>
      <source>Default</source>
      <translation>默认</translation>
    </message>
    <message>
      <source>Den Wert aus dem Geraet lesen</source>
      <translation>从仪器读取该值</translation>
    </message>
    <message>
      <source>Der Kontakt ist verloren: Die Kalibrierung ist zu Ende.</source>
      <translation>连接已丢失：校准已结束。</translation>
    </message>
    <message>
      <source>Der Leistungssensor hoert nichts unter -73 dBm: Bei diesem Grenzwert hat die Messung kein Ergebnis.</source>
      <translation>功率传感器无法测量 -73 dBm 以下的电平: 在此限值下测量没有判定结果。</translation>
    </message>
    <message>
      <source>Der Name darf weder / noch \ enthalten.</source>
      <translation>名称不得包含 / 或 \。</translation>
    </message>
    <message>
      <source>Der Pegel kommt an dem Port an, von dem die Traeger ausgehen.</source>
      <translation>信号返回到发射载波的端口。</translation>
    </message>
    <message>
      <source>Der Pegel kommt durch den Pruefling am anderen Port an.</source>
      <translation>信号经被测件到达另一端口。</translation>
    </message>
    <message>
      <source>Der Pegel wird nicht erreicht:</source>
      <translation>无法达到该电平：</translation>
    </message>
    <message>
      <source>Der Speicher des Geraets antwortet nicht.</source>
      <translation>仪器的存储器没有应答。</translation>
    </message>
    <message>
      <source>Der Speicher stimmt mit der Sicherung ueberein.</source>
      <translation>存储器与备份一致。</translation>
    </message>
    <message>
      <source>Deutsch</source>
      <translation>德语</translation>
    </message>
    <message>
      <source>Die Adressen 200 bis 210, aus denen die Seriennummer gelesen wird, aendern sich nicht.</source>
      <translation>读取序列号的地址 200 至 210 不会改变。</translation>
    </message>
    <message>
      <source>Die Berichte werden noch gespeichert.</source>
      <translation>报告仍在保存中。</translation>
    </message>
    <message>
      <source>Die Breite des Geraets hat sich geaendert.</source>
      <translation>仪器的频段已改变。</translation>
    </message>
    <message>
      <source>Die Datei nennt ihren Plan nicht genau.</source>
      <translation>文件未准确给出其频率方案。</translation>
    </message>
    <message>
      <source>Die Datei nennt keine Einstellungen.</source>
      <translation>文件未给出任何设置。</translation>
    </message>
    <message>
      <source>Die Datei nennt keine Grenze, es gilt die eingestellte.</source>
      <translation>文件未给出门限，以当前设置为准。</translation>
    </message>
    <message>
      <source>Die Kalibrierung schreibt auch Eintraege anderer Breiten:</source>
      <translation>校准也会写入其他频段的条目：</translation>
    </message>
    <message>
      <source>Die Messkurve ist nicht gespeichert. Soll die Datei sie ersetzen?</source>
      <translation>测量曲线尚未保存。是否用文件替换它？</translation>
    </message>
    <message>
      <source>Die Messung wird noch gespeichert.</source>
      <translation>测量仍在保存中。</translation>
    </message>
    <message>
      <source>Die Sicherung ist von einem anderen Geraet:</source>
      <translation>备份来自另一台仪器：</translation>
    </message>
    <message>
      <source>Die Verlusttabelle hat Felder ohne Zahl, sie wurde nicht geladen:</source>
      <translation>损耗表中有非数字字段，未加载：</translation>
    </message>
    <message>
      <source>Die Verlusttabelle ist zu kurz, sie wurde nicht geladen:</source>
      <translation>损耗表过短，未加载：</translation>
    </message>
    <message>
      <source>Die beiden neuen Passwoerter sind nicht gleich.</source>
      <translation>两次输入的新密码不一致。</translation>
    </message>
    <message>
      <source>Diese Ablagen kennt die Konfiguration nicht, sie bleiben:</source>
      <translation>配置中没有以下存储文件，它们保持不变：</translation>
    </message>
    <message>
      <source>Diese Stellen werden geschrieben (Seite Adresse: jetzt -&gt; Sicherung):</source>
      <translation>将写入以下位置（页 地址：现值 -&gt; 备份）：</translation>
    </message>
    <message>
      <source>Diese Werte passen nicht in die Verlusttabelle:</source>
      <translation>这些值不适合损耗表：</translation>
    </message>
    <message>
      <source>Diesen Wert ins Geraet schreiben</source>
      <translation>将该值写入仪器</translation>
    </message>
    <message>
      <source>Display Grafik Nur(&amp;I)</source>
      <translation>仅显示曲线图(&amp;O)</translation>
    </message>
    <message>
      <source>Do you have Re-powered your equipment?</source>
      <translation>设备已经重新上电了吗？</translation>
    </message>
    <message>
      <source>Do you select PCS band?  Yes--PCS, No--AWS</source>
      <translation>选择 PCS 频段吗？  是：PCS，否：AWS</translation>
    </message>
    <message>
      <source>Do you want to exit factory mode?</source>
      <translation>要退出工厂模式吗？</translation>
    </message>
    <message>
      <source>Does not support the current selection!</source>
      <translation>不支持当前选择！</translation>
    </message>
    <message>
      <source>Drucken</source>
      <translation>打印</translation>
    </message>
    <message>
      <source>Drucken Direkt(&amp;P)</source>
      <translation>直接打印(&amp;P)</translation>
    </message>
    <message>
      <source>Drucken misserfolg.</source>
      <translation>打印失败。</translation>
    </message>
    <message>
      <source>Drucken(&amp;V)</source>
      <translation>打印预览(&amp;V)</translation>
    </message>
    <message>
      <source>Drucker:</source>
      <translation>打印机：</translation>
    </message>
    <message>
      <source>Durch</source>
      <translation>通过</translation>
    </message>
    <message>
      <source>EEPROM Write</source>
      <translation>EEPROM 写入</translation>
    </message>
    <message>
      <source>EGSM Einbauen</source>
      <translation>EGSM 设置</translation>
    </message>
    <message>
      <source>ERR0 - SYNTAX ERROR</source>
      <translation>ERR0 - 语法错误</translation>
    </message>
    <message>
      <source>ERR1 - Parameter out of limits.</source>
      <translation>ERR1 - 参数超出范围。</translation>
    </message>
    <message>
      <source>ERR2 - PLL not locket.</source>
      <translation>ERR2 - 锁相环未锁定。</translation>
    </message>
    <message>
      <source>Eigene Einstellungen(&amp;E)</source>
      <translation>恢复自己的设置(&amp;E)</translation>
    </message>
    <message>
      <source>Ein anderes Geraet als vorher ist angeschlossen.</source>
      <translation>连接的不是先前的仪器。</translation>
    </message>
    <message>
      <source>Einbauen</source>
      <translation>设置</translation>
    </message>
    <message>
      <source>Einbauen misserfolg</source>
      <translation>设置失败</translation>
    </message>
    <message>
      <source>Eine Sicherung des Speichers mit dem Geraet vergleichen und zurueckschreiben</source>
      <translation>将存储器备份与仪器比较并写回</translation>
    </message>
    <message>
      <source>Eine unterbrochene Wiederherstellung wurde zurueckgenommen.</source>
      <translation>已撤销中断的恢复。</translation>
    </message>
    <message>
      <source>Einen Eintrag weiter</source>
      <translation>下一条</translation>
    </message>
    <message>
      <source>Einen Eintrag zurueck</source>
      <translation>上一条</translation>
    </message>
    <message>
      <source>Einfuehren Daten</source>
      <translation>导入数据</translation>
    </message>
    <message>
      <source>Einfuehren Daten(&amp;L)</source>
      <translation>导入数据(&amp;L)</translation>
    </message>
    <message>
      <source>Einfuehren Firmenlogo</source>
      <translation>导入公司徽标</translation>
    </message>
    <message>
      <source>Einfuehren Firmenlogo(&amp;I)</source>
      <translation>导入公司标志(&amp;I)</translation>
    </message>
    <message>
      <source>Einheit: dBm/dBc(&amp;C)</source>
      <translation>单位：dBm/dBc(&amp;U)</translation>
    </message>
    <message>
      <source>Einstellungen koennen nicht gespeichert werden:</source>
      <translation>无法保存设置：</translation>
    </message>
    <message>
      <source>Eintrag aus der Liste nehmen</source>
      <translation>从列表中移除</translation>
    </message>
    <message>
      <source>Eintrag der Ergebnisliste</source>
      <translation>结果列表条目</translation>
    </message>
    <message>
      <source>Empfaenger</source>
      <translation>接收机</translation>
    </message>
    <message>
      <source>Empfaenger Adresse</source>
      <translation>接收机地址</translation>
    </message>
    <message>
      <source>Ende f1:</source>
      <translation>终止 f1：</translation>
    </message>
    <message>
      <source>Ende f2:</source>
      <translation>终止 f2：</translation>
    </message>
    <message>
      <source>Ende:</source>
      <translation>下限：</translation>
    </message>
    <message>
      <source>Endless</source>
      <translation>连续</translation>
    </message>
    <message>
      <source>English</source>
      <translation>英语</translation>
    </message>
    <message>
      <source>Entsprechen Bildschirm</source>
      <translation>适应屏幕</translation>
    </message>
    <message>
      <source>Equipment Type:</source>
      <translation>设备类型：</translation>
    </message>
    <message>
      <source>Equipment type</source>
      <translation>仪器型号</translation>
    </message>
    <message>
      <source>Ergebnis der letzten Messung, ihre Punkte und ihr hoechster Pegel</source>
      <translation>最近一次测量的结果、点数和最高电平</translation>
    </message>
    <message>
      <source>Europe</source>
      <translation>欧洲</translation>
    </message>
    <message>
      <source>Excel Vorlagen</source>
      <translation>Excel 模板</translation>
    </message>
    <message>
      <source>Excel Vorlagen(&amp;V)</source>
      <translation>Excel 模板(&amp;V)</translation>
    </message>
    <message>
      <source>Exit</source>
      <translation>退出</translation>
    </message>
    <message>
      <source>Exit Cal</source>
      <translation>退出校准</translation>
    </message>
    <message>
      <source>Exit Test</source>
      <translation>退出测试</translation>
    </message>
    <message>
      <source>Extern</source>
      <translation>外部</translation>
    </message>
    <message>
      <source>F1 Compensation</source>
      <translation>F1 补偿</translation>
    </message>
    <message>
      <source>F2 Compensation</source>
      <translation>F2 补偿</translation>
    </message>
    <message>
      <source>FACTORY MODE</source>
      <translation>工厂模式</translation>
    </message>
    <message>
      <source>Failed to create folder!</source>
      <translation>创建文件夹失败！</translation>
    </message>
    <message>
      <source>Falsch, dichtesortierung.</source>
      <translation>输入有误，请检查。</translation>
    </message>
    <message>
      <source>Fatigue Test Set</source>
      <translation>疲劳测试设置</translation>
    </message>
    <message>
      <source>Fehler</source>
      <translation>错误</translation>
    </message>
    <message>
      <source>Fertige Zyklen:</source>
      <translation>已完成周期：</translation>
    </message>
    <message>
      <source>Finished Times:</source>
      <translation>已开始次数：</translation>
    </message>
    <message>
      <source>Firmware:</source>
      <translation>固件版本：</translation>
    </message>
    <message>
      <source>Fix f1 falsch!!!</source>
      <translation>固定 f1 错误！</translation>
    </message>
    <message>
      <source>Fix f1:</source>
      <translation>固定 f1：</translation>
    </message>
    <message>
      <source>Fix f2 falsch!!!</source>
      <translation>固定 f2 错误！</translation>
    </message>
    <message>
      <source>Fix f2:</source>
      <translation>固定 f2：</translation>
    </message>
    <message>
      <source>Fixed f1:</source>
      <translation>固定 f1：</translation>
    </message>
    <message>
      <source>Fixed f2:</source>
      <translation>固定 f2：</translation>
    </message>
    <message>
      <source>Format Select</source>
      <translation>格式选择</translation>
    </message>
    <message>
      <source>Frefix Set</source>
      <translation>前缀设置</translation>
    </message>
    <message>
      <source>Frefix Set(&amp;F)</source>
      <translation>前缀设置(&amp;F)</translation>
    </message>
    <message>
      <source>Freier Befehl</source>
      <translation>自由命令</translation>
    </message>
    <message>
      <source>Freq Schritt:</source>
      <translation>频率步进：</translation>
    </message>
    <message>
      <source>Freq Step:</source>
      <translation>频率步进：</translation>
    </message>
    <message>
      <source>Freq: MHz</source>
      <translation>频率：MHz</translation>
    </message>
    <message>
      <source>Freq_span (Ref: 0) (kHz):</source>
      <translation>频率跨度 (参考: 0) (kHz):</translation>
    </message>
    <message>
      <source>Frequenz des Produkts in MHz</source>
      <translation>产物频率（MHz）</translation>
    </message>
    <message>
      <source>Frequenz von Ton 1 in MHz</source>
      <translation>音 1 频率（MHz）</translation>
    </message>
    <message>
      <source>Frequenz von Ton 2 in MHz</source>
      <translation>音 2 频率（MHz）</translation>
    </message>
    <message>
      <source>Gelesen, Seite/Adresse:</source>
      <translation>已读取，页/地址：</translation>
    </message>
    <message>
      <source>Gelesene Leistungen sind keine Messung: Sie stehen in ihrem Protokoll.</source>
      <translation>回读功率不是测量结果：见其记录文件。</translation>
    </message>
    <message>
      <source>Geraet:</source>
      <translation>仪器：</translation>
    </message>
    <message>
      <source>Geraetefehler</source>
      <translation>仪器错误</translation>
    </message>
    <message>
      <source>Geschrieben, Seite/Adresse:</source>
      <translation>已写入，页/地址：</translation>
    </message>
    <message>
      <source>Gewaehlte Breite</source>
      <translation>所选频段</translation>
    </message>
    <message>
      <source>Grenze dBm</source>
      <translation>门限 dBm</translation>
    </message>
    <message>
      <source>Grenzwert, 0 bis -200</source>
      <translation>限值，0 到 -200</translation>
    </message>
    <message>
      <source>Grenzwert:</source>
      <translation>限值：</translation>
    </message>
    <message>
      <source>Halten Messung</source>
      <translation>停止测量</translation>
    </message>
    <message>
      <source>Halten Messung erst!</source>
      <translation>请先停止测量！</translation>
    </message>
    <message>
      <source>Hardware Initialization</source>
      <translation>硬件初始化</translation>
    </message>
    <message>
      <source>Hilfe(&amp;H)</source>
      <translation>帮助(&amp;H)</translation>
    </message>
    <message>
      <source>Histogramm(&amp;H)</source>
      <translation>直方图(&amp;H)</translation>
    </message>
    <message>
      <source>Hoch</source>
      <translation>高</translation>
    </message>
    <message>
      <source>Hoechstens so viele Zeichen, ohne Umlaute:</source>
      <translation>仅限无重音的字母，最多字符数：</translation>
    </message>
    <message>
      <source>Hoechster Pegel aller Zyklen in dBm</source>
      <translation>所有周期的最高电平 (dBm)</translation>
    </message>
    <message>
      <source>Hoechster Pegel:</source>
      <translation>最高电平：</translation>
    </message>
    <message>
      <source>Hoehe:</source>
      <translation>高度：</translation>
    </message>
    <message>
      <source>IM3(&amp;3)</source>
      <translation>IM3(&amp;3)</translation>
    </message>
    <message>
      <source>IM5(&amp;5)</source>
      <translation>IM5(&amp;5)</translation>
    </message>
    <message>
      <source>IM7(&amp;7)</source>
      <translation>IM7(&amp;7)</translation>
    </message>
    <message>
      <source>IM9(&amp;9)</source>
      <translation>IM9(&amp;9)</translation>
    </message>
    <message>
      <source>Initialisieren</source>
      <translation>正在初始化</translation>
    </message>
    <message>
      <source>Initialisieren, bitte warten!</source>
      <translation>正在初始化，请稍候！</translation>
    </message>
    <message>
      <source>Initialization finished.</source>
      <translation>初始化完成。</translation>
    </message>
    <message>
      <source>Initialize</source>
      <translation>初始化</translation>
    </message>
    <message>
      <source>Initialize finished.</source>
      <translation>初始化完成。</translation>
    </message>
    <message>
      <source>Input_Attenuation:</source>
      <translation>输入衰减:</translation>
    </message>
    <message>
      <source>Inter-band IM</source>
      <translation>跨频段 IM</translation>
    </message>
    <message>
      <source>Inter-band Measurement Off</source>
      <translation>关闭跨频段测量</translation>
    </message>
    <message>
      <source>Inter-band Measurement On</source>
      <translation>开启跨频段测量</translation>
    </message>
    <message>
      <source>Inter-band Measurement(&amp;O)</source>
      <translation>跨频段测量(&amp;I)</translation>
    </message>
    <message>
      <source>Inter-band Setup</source>
      <translation>跨频段设置</translation>
    </message>
    <message>
      <source>Intern</source>
      <translation>内部</translation>
    </message>
    <message>
      <source>Intervall:</source>
      <translation>间隔：</translation>
    </message>
    <message>
      <source>Is the equipment based on 3-dB bridge?</source>
      <translation>设备是否基于 3 dB 电桥？</translation>
    </message>
    <message>
      <source>Kein Empfaenger</source>
      <translation>没有接收机</translation>
    </message>
    <message>
      <source>Kein Empfaenger:</source>
      <translation>没有接收机:</translation>
    </message>
    <message>
      <source>Kein Geraet verbunden.</source>
      <translation>未连接仪器。</translation>
    </message>
    <message>
      <source>Kein Handbuch gefunden. Bitte QOR_Handbook.pdf in den Datenordner legen oder in qor.ini die Zeile handbook=... eintragen.</source>
      <translation>未找到手册。请将 QOR_Handbook.pdf 放入数据文件夹，或在 qor.ini 中加入一行 handbook=...。</translation>
    </message>
    <message>
      <source>Keine Antwort, Seite/Adresse:</source>
      <translation>无应答，页/地址：</translation>
    </message>
    <message>
      <source>Keine Messpunkte zum Speichern!</source>
      <translation>没有可保存的测量点！</translation>
    </message>
    <message>
      <source>Keine Nummer ist mehr frei.</source>
      <translation>已无可用编号。</translation>
    </message>
    <message>
      <source>Keine Seite fuer Updates eingetragen. Bitte in qor.ini diese Zeile eintragen:</source>
      <translation>尚未登记更新网页。请在 qor.ini 中加入此行：</translation>
    </message>
    <message>
      <source>Keine angefangene Kalibrierung dieser Breite.</source>
      <translation>该频段没有未完成的校准。</translation>
    </message>
    <message>
      <source>Klein</source>
      <translation>低</translation>
    </message>
    <message>
      <source>Kontakt zum Geraet verloren, der Vorgang ist abgebrochen.</source>
      <translation>与仪器失去联系，操作已中止。</translation>
    </message>
    <message>
      <source>Kontakt zum Geraet verloren, es wird gesucht.</source>
      <translation>与仪器的连接已丢失，正在搜索。</translation>
    </message>
    <message>
      <source>Kurve</source>
      <translation>曲线</translation>
    </message>
    <message>
      <source>LTE 700 L Einbauen</source>
      <translation>LTE 700 L 设置</translation>
    </message>
    <message>
      <source>LTE 700 U Einbauen</source>
      <translation>LTE 700 U 设置</translation>
    </message>
    <message>
      <source>LTE Einbauen</source>
      <translation>LTE 设置</translation>
    </message>
    <message>
      <source>Laenge einer 2-Ton-Messung, 1 bis 2147483 Sekunden</source>
      <translation>点频测量时长，1 到 2147483 秒</translation>
    </message>
    <message>
      <source>Last Saved</source>
      <translation>上次保存</translation>
    </message>
    <message>
      <source>Lautstaerke</source>
      <translation>音量</translation>
    </message>
    <message>
      <source>Leise</source>
      <translation>静音</translation>
    </message>
    <message>
      <source>Level detector inserted</source>
      <translation>已装电平检波器</translation>
    </message>
    <message>
      <source>Level gauge mess-delay:</source>
      <translation>电平测量延时：</translation>
    </message>
    <message>
      <source>Load Configure</source>
      <translation>加载配置</translation>
    </message>
    <message>
      <source>Load Rx Loss</source>
      <translation>加载接收损耗</translation>
    </message>
    <message>
      <source>Log On</source>
      <translation>登录</translation>
    </message>
    <message>
      <source>Lower power limit (dBm):</source>
      <translation>功率下限 (dBm)：</translation>
    </message>
    <message>
      <source>Marker 1 Bilden</source>
      <translation>标记 1 曲线</translation>
    </message>
    <message>
      <source>Marker 1 Einbauen</source>
      <translation>标记 1 设置</translation>
    </message>
    <message>
      <source>Marker 2 Bilden</source>
      <translation>标记 2 曲线</translation>
    </message>
    <message>
      <source>Marker 2 Einbauen</source>
      <translation>标记 2 设置</translation>
    </message>
    <message>
      <source>-50dBm</source>
      <translation>-50dBm</translation>
    </message>
    <message>
      <source>-80dBm</source>
      <translation>-80dBm</translation>
    </message>
    <message>
      <source>Attenuation Cell:</source>
      <translation>衰减量：</translation>
    </message>
    <message>
      <source>Ausgangspegel, 20 bis 46 dBm (bis Firmware 4.9: 33 bis 46)</source>
      <translation>输出电平，20 至 46 dBm（固件 4.9 及以前：33 至 46）</translation>
    </message>
    <message>
      <source>Beginnt mit dem ersten Punkt, der noch nicht geschrieben ist</source>
      <translation>从第一个尚未写入的点开始</translation>
    </message>
    <message>
      <source>Daempfung zwischen Ausgang und Empfaenger, ab 0.1 dB</source>
      <translation>端口与接收机之间的衰减，0.1 dB 起</translation>
    </message>
    <message>
      <source>Delta:</source>
      <translation>步进：</translation>
    </message>
    <message>
      <source>Den Detektor bei -50 dBm lesen</source>
      <translation>在 -50 dBm 时读取检波器</translation>
    </message>
    <message>
      <source>Den Detektor bei -80 dBm lesen</source>
      <translation>在 -80 dBm 时读取检波器</translation>
    </message>
    <message>
      <source>Diesen Ton kalibrieren</source>
      <translation>校准此载波</translation>
    </message>
    <message>
      <source>Erste Frequenz, ganze MHz</source>
      <translation>起始频率，整数 MHz</translation>
    </message>
    <message>
      <source>Erster Traeger in MHz, im Sendebereich der Breite</source>
      <translation>第一载波（MHz），位于频段发射范围内</translation>
    </message>
    <message>
      <source>Fortschritt</source>
      <translation>进度</translation>
    </message>
    <message>
      <source>Fortsetzen</source>
      <translation>继续</translation>
    </message>
    <message>
      <source>Frequenz in MHz, Pegel in dBm, Steuerspannung in V</source>
      <translation>频率 MHz，电平 dBm，驱动电压 V</translation>
    </message>
    <message>
      <source>Letzte Frequenz, ganze MHz</source>
      <translation>终止频率，整数 MHz</translation>
    </message>
    <message>
      <source>Level Delta:</source>
      <translation>电平步进：</translation>
    </message>
    <message>
      <source>Level Start:</source>
      <translation>起始电平：</translation>
    </message>
    <message>
      <source>Level Stop:</source>
      <translation>终止电平：</translation>
    </message>
    <message>
      <source>Messwert:</source>
      <translation>读数：</translation>
    </message>
    <message>
      <source>Misst, was bei jedem Pegel wirklich herauskommt</source>
      <translation>测量每个电平的实际输出</translation>
    </message>
    <message>
      <source>Power Calibration</source>
      <translation>功率校准</translation>
    </message>
    <message>
      <source>Punkt:</source>
      <translation>点：</translation>
    </message>
    <message>
      <source>Punkte</source>
      <translation>各点</translation>
    </message>
    <message>
      <source>Read</source>
      <translation>回读</translation>
    </message>
    <message>
      <source>Receiver Calibration</source>
      <translation>接收机校准</translation>
    </message>
    <message>
      <source>Restzeit:</source>
      <translation>剩余时间：</translation>
    </message>
    <message>
      <source>Schreibt Steigung und Versatz ins Geraet</source>
      <translation>将斜率和偏移写入仪器</translation>
    </message>
    <message>
      <source>Schritt der Pegel, ab 1 dB</source>
      <translation>电平步进，1 dB 起</translation>
    </message>
    <message>
      <source>Schritt, ab 1 MHz; RT-DB22 und RT-L027 ab 2 MHz</source>
      <translation>步进，1 MHz 起；RT-DB22 和 RT-L027 为 2 MHz 起</translation>
    </message>
    <message>
      <source>Set        in signal generator.</source>
      <translation>在信号发生器中设置        。</translation>
    </message>
    <message>
      <source>Set %1 in signal generator.</source>
      <translation>在信号发生器中设置 %1 MHz。</translation>
    </message>
    <message>
      <source>Start:</source>
      <translation>起始：</translation>
    </message>
    <message>
      <source>Steuerspannung:</source>
      <translation>驱动电压：</translation>
    </message>
    <message>
      <source>Stop Cal</source>
      <translation>停止校准</translation>
    </message>
    <message>
      <source>Stop:</source>
      <translation>终止：</translation>
    </message>
    <message>
      <source>Sucht jeden Pegel und schreibt ihn ins Geraet</source>
      <translation>搜索每个电平并写入仪器</translation>
    </message>
    <message>
      <source>Write to EEPROM</source>
      <translation>写入 EEPROM</translation>
    </message>
    <message>
      <source>Zweiter Traeger in MHz, im Sendebereich der Breite</source>
      <translation>第二载波（MHz），位于频段发射范围内</translation>
    </message>
    <message>
      <source>Marker 3 Bilden</source>
      <translation>标记 3 曲线</translation>
    </message>
    <message>
      <source>Marker 3 Einbauen</source>
      <translation>标记 3 设置</translation>
    </message>
    <message>
      <source>Marker ein- und ausschalten</source>
      <translation>打开或关闭标记</translation>
    </message>
    <message>
      <source>Max</source>
      <translation>最大</translation>
    </message>
    <message>
      <source>Measurement Mode Setup(&amp;M)</source>
      <translation>测量模式设置(&amp;M)</translation>
    </message>
    <message>
      <source>Meist Posten:</source>
      <translation>最差值:</translation>
    </message>
    <message>
      <source>Messung beginnen oder anhalten</source>
      <translation>开始或停止测量</translation>
    </message>
    <message>
      <source>Messung laeuft</source>
      <translation>正在测量</translation>
    </message>
    <message>
      <source>Messung wie Datei(&amp;W)</source>
      <translation>按文件测量(&amp;W)</translation>
    </message>
    <message>
      <source>Messung(&amp;M)</source>
      <translation>测量(&amp;M)</translation>
    </message>
    <message>
      <source>Messungen:</source>
      <translation>测量：</translation>
    </message>
    <message>
      <source>Messverfahren</source>
      <translation>测量方法</translation>
    </message>
    <message>
      <source>Messweg</source>
      <translation>测量路径</translation>
    </message>
    <message>
      <source>Mesurement Einbauen</source>
      <translation>测量设置</translation>
    </message>
    <message>
      <source>Misserfolg</source>
      <translation>失败</translation>
    </message>
    <message>
      <source>Missing in:</source>
      <translation>缺少文件:</translation>
    </message>
    <message>
      <source>Mitte</source>
      <translation>中</translation>
    </message>
    <message>
      <source>Modify Password</source>
      <translation>修改密码</translation>
    </message>
    <message>
      <source>Multi-times</source>
      <translation>多次</translation>
    </message>
    <message>
      <source>Naechste Messung:</source>
      <translation>下次测量:</translation>
    </message>
    <message>
      <source>Naechste freie Nummer</source>
      <translation>下一个可用编号</translation>
    </message>
    <message>
      <source>Name:</source>
      <translation>名称：</translation>
    </message>
    <message>
      <source>New Password:</source>
      <translation>新密码：</translation>
    </message>
    <message>
      <source>Nicht bestaetigt, Seite/Adresse:</source>
      <translation>未确认，页/地址：</translation>
    </message>
    <message>
      <source>Nicht bestaetigt:</source>
      <translation>未确认：</translation>
    </message>
    <message>
      <source>Nicht gelesene Dateien:</source>
      <translation>未能读取的文件：</translation>
    </message>
    <message>
      <source>Nicht uebernommen, Seite/Adresse:</source>
      <translation>未被接受，页/地址：</translation>
    </message>
    <message>
      <source>Nicht verbunden</source>
      <translation>未连接</translation>
    </message>
    <message>
      <source>Nichts Breite Selektiert</source>
      <translation>未选择频段</translation>
    </message>
    <message>
      <source>Nichts auswaehlen das breite.</source>
      <translation>无法选择该频段。</translation>
    </message>
    <message>
      <source>Nichts der Datei ist in Kraft: ihre Frequenzen gehoeren zu keiner Breite.</source>
      <translation>文件设置均未生效：其频率不属于任何频段。</translation>
    </message>
    <message>
      <source>Nichts der Datei ist in Kraft: ihre Grenze liegt ausserhalb des Bereichs.</source>
      <translation>文件设置均未生效：其门限超出范围。</translation>
    </message>
    <message>
      <source>Nichts der Datei ist in Kraft: ihre Leistung liegt ausserhalb des Bereichs.</source>
      <translation>文件设置均未生效：其功率超出范围。</translation>
    </message>
    <message>
      <source>Nichts der Datei ist in Kraft: ihre Ordnung ist unbekannt.</source>
      <translation>文件设置均未生效：其阶数未知。</translation>
    </message>
    <message>
      <source>Nichts einbauen AMPS.</source>
      <translation>无法设置 AMPS。</translation>
    </message>
    <message>
      <source>Nichts einbauen AWS.</source>
      <translation>无法设置 AWS。</translation>
    </message>
    <message>
      <source>Nichts einbauen DCS.</source>
      <translation>无法设置 DCS。</translation>
    </message>
    <message>
      <source>Nichts einbauen EGSM.</source>
      <translation>无法设置 EGSM。</translation>
    </message>
    <message>
      <source>Nichts einbauen LTE.</source>
      <translation>无法设置 LTE。</translation>
    </message>
    <message>
      <source>Nichts einbauen PCS.</source>
      <translation>无法设置 PCS。</translation>
    </message>
    <message>
      <source>Nichts einbauen TD-SCDMA.</source>
      <translation>无法设置 TD-SCDMA。</translation>
    </message>
    <message>
      <source>Nichts einbauen UMTS.</source>
      <translation>无法设置 UMTS。</translation>
    </message>
    <message>
      <source>Nichts einbauen UMTS2.</source>
      <translation>无法设置 UMTS2。</translation>
    </message>
    <message>
      <source>Nichts einbauen WIFI.</source>
      <translation>无法设置 WIFI。</translation>
    </message>
    <message>
      <source>Nichts einbauen WiMax.</source>
      <translation>无法设置 WiMax。</translation>
    </message>
    <message>
      <source>Niveau</source>
      <translation>告警限值</translation>
    </message>
    <message>
      <source>No Function Menu</source>
      <translation>无功能菜单</translation>
    </message>
    <message>
      <source>Noch:</source>
      <translation>剩余时间：</translation>
    </message>
    <message>
      <source>Not Supported</source>
      <translation>不支持</translation>
    </message>
    <message>
      <source>Not enough resource for the bitmap. Either reduce the bitmap dimension or</source>
      <translation>位图资源不足。请缩小位图尺寸，或</translation>
    </message>
    <message>
      <source>Nothing was restored.</source>
      <translation>未恢复任何设置。</translation>
    </message>
    <message>
      <source>Nummer (0 vertreten alle):</source>
      <translation>编号（0 表示全部）：</translation>
    </message>
    <message>
      <source>Nummer (0 vertreten unendlich):</source>
      <translation>次数（0 表示无限）：</translation>
    </message>
    <message>
      <source>Nur was aus einer .dat stammt, wird wieder eine .dat.</source>
      <translation>只有来自 .dat 文件的曲线才能再存为 .dat。</translation>
    </message>
    <message>
      <source>OK</source>
      <translation>确定</translation>
    </message>
    <message>
      <source>Oben</source>
      <translation>上扫</translation>
    </message>
    <message>
      <source>Oberes Ende der Pegelachse</source>
      <translation>电平轴上限</translation>
    </message>
    <message>
      <source>Oeffnen</source>
      <translation>打开</translation>
    </message>
    <message>
      <source>Oeffnen Port</source>
      <translation>打开端口</translation>
    </message>
    <message>
      <source>Oeffnen file Misserfolg</source>
      <translation>打开文件失败</translation>
    </message>
    <message>
      <source>Oeffnen port erst!</source>
      <translation>请先打开端口！</translation>
    </message>
    <message>
      <source>Ohne sein Protokoll beginnt der Test nicht:</source>
      <translation>没有记录文件，测试不会开始：</translation>
    </message>
    <message>
      <source>Okey</source>
      <translation>确定</translation>
    </message>
    <message>
      <source>Old Password:</source>
      <translation>旧密码：</translation>
    </message>
    <message>
      <source>One of its cells is damaged.</source>
      <translation>其中一个单元格已损坏。</translation>
    </message>
    <message>
      <source>One of its data rows is damaged.</source>
      <translation>其中一行数据已损坏。</translation>
    </message>
    <message>
      <source>Operator Mode</source>
      <translation>操作员模式</translation>
    </message>
    <message>
      <source>Ordner der Serie</source>
      <translation>系列文件夹</translation>
    </message>
    <message>
      <source>Ordner der Serie(&amp;O)</source>
      <translation>系列文件夹(&amp;O)</translation>
    </message>
    <message>
      <source>Ordner:</source>
      <translation>文件夹：</translation>
    </message>
    <message>
      <source>Ordnung des Produkts</source>
      <translation>产物阶数</translation>
    </message>
    <message>
      <source>PA-Error-Check on</source>
      <translation>功放错误检查开</translation>
    </message>
    <message>
      <source>PCS Einbauen</source>
      <translation>PCS 设置</translation>
    </message>
    <message>
      <source>PDF</source>
      <translation>PDF</translation>
    </message>
    <message>
      <source>PIM</source>
      <translation>互调 (PIM)</translation>
    </message>
    <message>
      <source>PIN-CODE</source>
      <translation>PIN 码</translation>
    </message>
    <message>
      <source>PIN-Code:</source>
      <translation>PIN 码：</translation>
    </message>
    <message>
      <source>Page:</source>
      <translation>页：</translation>
    </message>
    <message>
      <source>Password:</source>
      <translation>密码：</translation>
    </message>
    <message>
      <source>Path Cable Loss</source>
      <translation>路径线缆损耗</translation>
    </message>
    <message>
      <source>Path Cable Loss(&amp;L)</source>
      <translation>路径线缆损耗(&amp;P)</translation>
    </message>
    <message>
      <source>Path:</source>
      <translation>路径：</translation>
    </message>
    <message>
      <source>Pause zwischen zwei Durchlaeufen</source>
      <translation>两次扫频之间的间隔</translation>
    </message>
    <message>
      <source>Pegel am Marker</source>
      <translation>标记处电平</translation>
    </message>
    <message>
      <source>Pegelachse vergroessern</source>
      <translation>放大电平轴</translation>
    </message>
    <message>
      <source>Pegelachse verkleinern</source>
      <translation>缩小电平轴</translation>
    </message>
    <message>
      <source>Pixel</source>
      <translation>像素</translation>
    </message>
    <message>
      <source>Please check if your equipment is connected with your PC.</source>
      <translation>请检查仪器是否已连接到电脑。</translation>
    </message>
    <message>
      <source>Please choose another file.</source>
      <translation>请选择其他文件。</translation>
    </message>
    <message>
      <source>Please confirm what you set be valid for the device.</source>
      <translation>请确认所设数值适用于该仪器。</translation>
    </message>
    <message>
      <source>Please get volt of -50dBm firstly!</source>
      <translation>请先读取 -50 dBm 的电压！</translation>
    </message>
    <message>
      <source>Please get volt of -80dBm firstly!</source>
      <translation>请先读取 -80 dBm 的电压！</translation>
    </message>
    <message>
      <source>Please input "Attenuation Cell"</source>
      <translation>请输入“衰减量”</translation>
    </message>
    <message>
      <source>Please re-select the band or re-connect the device!</source>
      <translation>请重新选择频段或重新连接仪器！</translation>
    </message>
    <message>
      <source>Please select auto-save file path from [Auto-Save] menu at first!</source>
      <translation>请先在 [自动保存] 菜单中选择文件路径！</translation>
    </message>
    <message>
      <source>Please select band after initailization completed.</source>
      <translation>请在初始化完成后选择频段。</translation>
    </message>
    <message>
      <source>Please select external receiver by menu "Setup-&gt;Receiver Ports-&gt;External"</source>
      <translation>请通过菜单 "设置-&gt;接收端口-&gt;外部" 选择外部接收机</translation>
    </message>
    <message>
      <source>Please select f1 or/and f2 to do calibration.</source>
      <translation>请选择要校准的 f1 和/或 f2。</translation>
    </message>
    <message>
      <source>Please select f1 or/and f2 to read.</source>
      <translation>请选择要回读的 f1 和/或 f2。</translation>
    </message>
    <message>
      <source>Please select the correct directory for saving!</source>
      <translation>请选择正确的保存目录！</translation>
    </message>
    <message>
      <source>Please stop calibration firstly.</source>
      <translation>请先停止校准。</translation>
    </message>
    <message>
      <source>Please use 2MHz as delta for RT-DB22/RT-L027.</source>
      <translation>RT-DB22/RT-L027 请使用 2 MHz 步进。</translation>
    </message>
    <message>
      <source>Port 1 To DUT Path Cable Loss:</source>
      <translation>端口 1 至被测件的线缆损耗：</translation>
    </message>
    <message>
      <source>Port 2 To DUT Path Cable Loss:</source>
      <translation>端口 2 至被测件的线缆损耗：</translation>
    </message>
    <message>
      <source>Port muessen kleiner als 17</source>
      <translation>端口号必须小于 17</translation>
    </message>
    <message>
      <source>Power (mW)</source>
      <translation>功率 (mW)</translation>
    </message>
    <message>
      <source>Power 1:</source>
      <translation>功率 1:</translation>
    </message>
    <message>
      <source>Power 2:</source>
      <translation>功率 2:</translation>
    </message>
    <message>
      <source>Power Off Duration:</source>
      <translation>功率关闭时长：</translation>
    </message>
    <message>
      <source>Power On Duration:</source>
      <translation>功率开启时长：</translation>
    </message>
    <message>
      <source>Power Output f1:</source>
      <translation>输出功率 f1：</translation>
    </message>
    <message>
      <source>Power Output f2:</source>
      <translation>输出功率 f2：</translation>
    </message>
    <message>
      <source>Power Set</source>
      <translation>功率设置</translation>
    </message>
    <message>
      <source>Preamplify On/Off:</source>
      <translation>前置放大 开/关:</translation>
    </message>
    <message>
      <source>Programm beenden</source>
      <translation>退出程序</translation>
    </message>
    <message>
      <source>Programm wird beendet</source>
      <translation>正在退出</translation>
    </message>
    <message>
      <source>Pruefling</source>
      <translation>被测件</translation>
    </message>
    <message>
      <source>Prueflinge</source>
      <translation>被测件</translation>
    </message>
    <message>
      <source>QOR Device SN(&amp;Z)</source>
      <translation>仪器序列号(&amp;S)</translation>
    </message>
    <message>
      <source>QOR Handbuch(&amp;Q)</source>
      <translation>QOR 手册(&amp;M)</translation>
    </message>
    <message>
      <source>QorTool ist nicht installiert:</source>
      <translation>未安装 QorTool:</translation>
    </message>
    <message>
      <source>R/S Analysator Setup(&amp;A)</source>
      <translation>R/S 分析仪设置(&amp;A)</translation>
    </message>
    <message>
      <source>R/S Analysator Setup(&amp;A):</source>
      <translation>R/S 分析仪设置:</translation>
    </message>
    <message>
      <source>RS Spektrum Analysator</source>
      <translation>RS 频谱分析仪</translation>
    </message>
    <message>
      <source>Range: 0-9.9</source>
      <translation>范围：0-9.9</translation>
    </message>
    <message>
      <source>Re-power</source>
      <translation>重新上电</translation>
    </message>
    <message>
      <source>Re-power your equipment.</source>
      <translation>请将仪器重新上电。</translation>
    </message>
    <message>
      <source>Read</source>
      <translation>读取</translation>
    </message>
    <message>
      <source>Receive Band:</source>
      <translation>接收频段：</translation>
    </message>
    <message>
      <source>Receiver Error!</source>
      <translation>接收机错误！</translation>
    </message>
    <message>
      <source>Receiver Ports(&amp;P)</source>
      <translation>接收端口(&amp;P)</translation>
    </message>
    <message>
      <source>Ref_Lev (dBm):</source>
      <translation>参考电平 (dBm):</translation>
    </message>
    <message>
      <source>Reflex Modell</source>
      <translation>反射模式</translation>
    </message>
    <message>
      <source>Reflex(&amp;R)</source>
      <translation>反射(&amp;R)</translation>
    </message>
    <message>
      <source>Repeat Times:</source>
      <translation>重复次数：</translation>
    </message>
    <message>
      <source>Replace data</source>
      <translation>替换数据</translation>
    </message>
    <message>
      <source>Resolution_Bandwidth:</source>
      <translation>分辨率带宽:</translation>
    </message>
    <message>
      <source>Restore memory</source>
      <translation>恢复存储器</translation>
    </message>
    <message>
      <source>Retry again.</source>
      <translation>是否重试?</translation>
    </message>
    <message>
      <source>Route Verlust Einbauen</source>
      <translation>路径损耗设置</translation>
    </message>
    <message>
      <source>Route Verlust Einbauen(&amp;X)</source>
      <translation>路径损耗设置(&amp;S)</translation>
    </message>
    <message>
      <source>Route Verlust(&amp;V)</source>
      <translation>路径损耗(&amp;L)</translation>
    </message>
    <message>
      <source>SA Enclosed</source>
      <translation>含频谱分析</translation>
    </message>
    <message>
      <source>SN:</source>
      <translation>序列号：</translation>
    </message>
    <message>
      <source>Save Configure</source>
      <translation>保存配置</translation>
    </message>
    <message>
      <source>Save ERR</source>
      <translation>保存出错</translation>
    </message>
    <message>
      <source>Save FAIL  file?</source>
      <translation>保存失败的结果文件？</translation>
    </message>
    <message>
      <source>Save all graphs?</source>
      <translation>保存所有图形？</translation>
    </message>
    <message>
      <source>Scan R&amp;S Spectrum Analyzer Device</source>
      <translation>搜索 R&amp;S 频谱分析仪</translation>
    </message>
    <message>
      <source>Scannen Fix f1 falsch!!!</source>
      <translation>扫频固定 f1 错误！</translation>
    </message>
    <message>
      <source>Scannen Fix f2 falsch!!!</source>
      <translation>扫频固定 f2 错误！</translation>
    </message>
    <message>
      <source>Scannen Modell</source>
      <translation>扫频模式</translation>
    </message>
    <message>
      <source>Scannen Port</source>
      <translation>扫描端口</translation>
    </message>
    <message>
      <source>Scannen(&amp;S)</source>
      <translation>扫频(&amp;S)</translation>
    </message>
    <message>
      <source>Schnittstelle Entwurf(&amp;Z)</source>
      <translation>界面布局(&amp;W)</translation>
    </message>
    <message>
      <source>Schreiben?</source>
      <translation>写入吗？</translation>
    </message>
    <message>
      <source>Schreibt die Kennung und die Grenzen des Geraets, nach Vorschau und Frage</source>
      <translation>预览并确认后写入仪器的标识和限值</translation>
    </message>
    <message>
      <source>Schreibt die Verluste in eine Datei .conf</source>
      <translation>将损耗写入 .conf 文件</translation>
    </message>
    <message>
      <source>Schritt falsch!!!</source>
      <translation>步进错误！</translation>
    </message>
    <message>
      <source>Sec.</source>
      <translation>秒</translation>
    </message>
    <message>
      <source>Seite</source>
      <translation>页面</translation>
    </message>
    <message>
      <source>Seite des Speichers, 0 bis 127</source>
      <translation>存储器页，0 至 127</translation>
    </message>
    <message>
      <source>Sek.</source>
      <translation>秒</translation>
    </message>
    <message>
      <source>Sekunden vom Halten bis zum naechsten Start, 1 bis 100</source>
      <translation>载波关闭：从停止到下次开始的秒数，1 至 100</translation>
    </message>
    <message>
      <source>Sekunden vom Start bis zum Halten, 1 bis 100</source>
      <translation>载波开启：从开始到停止的秒数，1 至 100</translation>
    </message>
    <message>
      <source>Selec PCS/AWS</source>
      <translation>选择 PCS/AWS</translation>
    </message>
    <message>
      <source>Send</source>
      <translation>发送</translation>
    </message>
    <message>
      <source>Serien:</source>
      <translation>序列号：</translation>
    </message>
    <message>
      <source>Seriennummer des Prueflings</source>
      <translation>被测件序列号</translation>
    </message>
    <message>
      <source>Seriennummer(&amp;N)</source>
      <translation>序列号(&amp;N)</translation>
    </message>
    <message>
      <source>Seriennummer, 0 bis 65535</source>
      <translation>序列号，0 至 65535</translation>
    </message>
    <message>
      <source>Seriennummer:</source>
      <translation>序列号：</translation>
    </message>
    <message>
      <source>Set</source>
      <translation>设置</translation>
    </message>
    <message>
      <source>Setup(&amp;S)</source>
      <translation>设置(&amp;S)</translation>
    </message>
    <message>
      <source>Sich</source>
      <translation>退出</translation>
    </message>
    <message>
      <source>Sich(&amp;X)</source>
      <translation>退出(&amp;X)</translation>
    </message>
    <message>
      <source>Sich?</source>
      <translation>要退出吗？</translation>
    </message>
    <message>
      <source>Single</source>
      <translation>单次</translation>
    </message>
    <message>
      <source>Spectrum Analyze Enclosed</source>
      <translation>含频谱分析</translation>
    </message>
    <message>
      <source>Spectrum Analyzer(&amp;N)</source>
      <translation>频谱分析(&amp;A)</translation>
    </message>
    <message>
      <source>Spectrum Mode</source>
      <translation>频谱模式</translation>
    </message>
    <message>
      <source>Speicher gesichert:</source>
      <translation>存储器已备份：</translation>
    </message>
    <message>
      <source>Speicher nicht gesichert:</source>
      <translation>存储器未备份：</translation>
    </message>
    <message>
      <source>Speicher wird geschrieben:</source>
      <translation>正在写入存储器：</translation>
    </message>
    <message>
      <source>Speicher wird gesichert:</source>
      <translation>正在备份存储器：</translation>
    </message>
    <message>
      <source>Speicher wird verglichen:</source>
      <translation>正在比较存储器：</translation>
    </message>
    <message>
      <source>Speichern</source>
      <translation>保存</translation>
    </message>
    <message>
      <source>Speichern BMP(&amp;B)</source>
      <translation>保存 BMP(&amp;B)</translation>
    </message>
    <message>
      <source>Speichern DATen File</source>
      <translation>保存数据文件</translation>
    </message>
    <message>
      <source>Speichern Daten(&amp;T)</source>
      <translation>保存数据(&amp;D)</translation>
    </message>
    <message>
      <source>Speichern Excel(&amp;X)</source>
      <translation>保存 Excel(&amp;E)</translation>
    </message>
    <message>
      <source>Speichern Graph BMP</source>
      <translation>保存图形为 BMP</translation>
    </message>
    <message>
      <source>Speichern Graph(&amp;G)</source>
      <translation>保存曲线图(&amp;G)</translation>
    </message>
    <message>
      <source>Speichern JPG(&amp;J)</source>
      <translation>保存 JPG(&amp;J)</translation>
    </message>
    <message>
      <source>Speichern PDF(&amp;S)</source>
      <translation>保存 PDF(&amp;S)</translation>
    </message>
    <message>
      <source>Speichern Standard</source>
      <translation>保存默认值</translation>
    </message>
    <message>
      <source>Speichern file misserfolg</source>
      <translation>保存文件失败</translation>
    </message>
    <message>
      <source>Speichern...</source>
      <translation>保存...</translation>
    </message>
    <message>
      <source>Sprache des Berichts(&amp;R)</source>
      <translation>报告语言(&amp;R)</translation>
    </message>
    <message>
      <source>Sprache(&amp;L)</source>
      <translation>语言(&amp;L)</translation>
    </message>
    <message>
      <source>Staerke  Ausfuhr f1:</source>
      <translation>输出功率 f1：</translation>
    </message>
    <message>
      <source>Staerke  Ausfuhr f2:</source>
      <translation>输出功率 f2：</translation>
    </message>
    <message>
      <source>Staerke Einbauen</source>
      <translation>功率设置</translation>
    </message>
    <message>
      <source>Standard</source>
      <translation>默认</translation>
    </message>
    <message>
      <source>Start Fatigue Test</source>
      <translation>开始疲劳测试</translation>
    </message>
    <message>
      <source>Start f1:</source>
      <translation>起始 f1：</translation>
    </message>
    <message>
      <source>Start f2:</source>
      <translation>起始 f2：</translation>
    </message>
    <message>
      <source>Start/Stop Measurement(&amp;M)</source>
      <translation>开始/停止测量(&amp;M)</translation>
    </message>
    <message>
      <source>Statistik</source>
      <translation>统计</translation>
    </message>
    <message>
      <source>Statistik(&amp;K)</source>
      <translation>统计(&amp;K)</translation>
    </message>
    <message>
      <source>Status</source>
      <translation>状态</translation>
    </message>
    <message>
      <source>Stelle des Markers: Zeit oder Frequenz</source>
      <translation>标记位置：时间或频率</translation>
    </message>
    <message>
      <source>Stempel</source>
      <translation>印章</translation>
    </message>
    <message>
      <source>Steuerprogramm fuer einen Zweiton-Analysator der passiven Intermodulation</source>
      <translation>双音无源互调分析仪控制程序</translation>
    </message>
    <message>
      <source>Stop Fatigue Test</source>
      <translation>停止疲劳测试</translation>
    </message>
    <message>
      <source>Stop f1:</source>
      <translation>终止 f1：</translation>
    </message>
    <message>
      <source>Stop f2:</source>
      <translation>终止 f2：</translation>
    </message>
    <message>
      <source>Stunden, Minuten und Sekunden bis zum Ende des Tests</source>
      <translation>距测试结束的时、分、秒</translation>
    </message>
    <message>
      <source>Suche Empfaenger</source>
      <translation>正在搜索接收机</translation>
    </message>
    <message>
      <source>Sweep</source>
      <translation>扫频</translation>
    </message>
    <message>
      <source>Sweep Mode</source>
      <translation>扫频模式</translation>
    </message>
    <message>
      <source>Sweep delay:</source>
      <translation>扫描延时：</translation>
    </message>
    <message>
      <source>Switch matrix attached</source>
      <translation>已接开关矩阵</translation>
    </message>
    <message>
      <source>Sync</source>
      <translation>同步</translation>
    </message>
    <message>
      <source>Synchron</source>
      <translation>同步</translation>
    </message>
    <message>
      <source>TD-A</source>
      <translation>TD-A</translation>
    </message>
    <message>
      <source>TD-E Setup</source>
      <translation>TD-E 设置</translation>
    </message>
    <message>
      <source>TD-F Setup</source>
      <translation>TD-F 设置</translation>
    </message>
    <message>
      <source>TD-SCDMA 2000</source>
      <translation>TD-SCDMA 2000</translation>
    </message>
    <message>
      <source>TXT</source>
      <translation>TXT</translation>
    </message>
    <message>
      <source>Test</source>
      <translation>测试</translation>
    </message>
    <message>
      <source>Tetra 390 Setup</source>
      <translation>Tetra 390 设置</translation>
    </message>
    <message>
      <source>Tetra 392</source>
      <translation>Tetra 392</translation>
    </message>
    <message>
      <source>The configuration is incomplete, nothing was restored.</source>
      <translation>配置不完整，未恢复任何设置。</translation>
    </message>
    <message>
      <source>The device is disconnect. Connect it now?</source>
      <translation>仪器未连接。现在连接吗？</translation>
    </message>
    <message>
      <source>The file ends before its limit line.</source>
      <translation>文件在限值行之前中断。</translation>
    </message>
    <message>
      <source>The file ends in the middle of its data.</source>
      <translation>文件数据不完整。</translation>
    </message>
    <message>
      <source>The file has already existed. Do you want to replace it?</source>
      <translation>文件已存在。要替换它吗？</translation>
    </message>
    <message>
      <source>The file holds no measured level.</source>
      <translation>文件中没有测量值。</translation>
    </message>
    <message>
      <source>The file is empty.</source>
      <translation>文件为空。</translation>
    </message>
    <message>
      <source>The file is too large for a result.</source>
      <translation>文件过大，不是结果文件。</translation>
    </message>
    <message>
      <source>The file is too long for a result.</source>
      <translation>文件过长，不是结果文件。</translation>
    </message>
    <message>
      <source>The last run did not end in order.</source>
      <translation>上次测量未正常结束。</translation>
    </message>
    <message>
      <source>The minimum value of not less than 0dbm</source>
      <translation>数值不得小于 0 dBm</translation>
    </message>
    <message>
      <source>The power of Tone 1 and Tone 2 is not the same, can not use dBc.</source>
      <translation>两路载波功率不同，无法使用 dBc。</translation>
    </message>
    <message>
      <source>The result is too long for this form.</source>
      <translation>结果过长，此格式无法容纳。</translation>
    </message>
    <message>
      <source>The start value of SN should be number symbol!</source>
      <translation>序列号起始值必须为数字！</translation>
    </message>
    <message>
      <source>The table holds several results.</source>
      <translation>该表格包含多个结果。</translation>
    </message>
    <message>
      <source>The table is cut short.</source>
      <translation>该表格不完整。</translation>
    </message>
    <message>
      <source>The value of Alarm Lever cannot be empty!</source>
      <translation>告警限值不能为空！</translation>
    </message>
    <message>
      <source>The value of Alarm Lever should be in range 0 ~ -200</source>
      <translation>告警限值应在 0 到 -200 之间</translation>
    </message>
    <message>
      <source>The workbook has no sheet "QOR_Test": it is not a result.</source>
      <translation>工作簿中没有工作表“QOR_Test”：不是结果文件。</translation>
    </message>
    <message>
      <source>The workbook is damaged.</source>
      <translation>工作簿已损坏。</translation>
    </message>
    <message>
      <source>The workbook is encrypted.</source>
      <translation>工作簿已加密。</translation>
    </message>
    <message>
      <source>The workbook is of an older form; please save it as Excel 97 or newer.</source>
      <translation>工作簿格式过旧；请另存为 Excel 97 或更新的格式。</translation>
    </message>
    <message>
      <source>There is no workbook in the file, or it is of an older form.</source>
      <translation>文件中没有工作簿，或其格式过旧。</translation>
    </message>
    <message>
      <source>This form wants a limit.</source>
      <translation>此格式需要限值。</translation>
    </message>
    <message>
      <source>This form wants the whole head of a result.</source>
      <translation>此格式需要结果的完整表头。</translation>
    </message>
    <message>
      <source>This is not a result file, or its header is damaged.</source>
      <translation>不是结果文件，或文件头已损坏。</translation>
    </message>
    <message>
      <source>This is not a result file.</source>
      <translation>不是结果文件。</translation>
    </message>
    <message>
      <source>Time:</source>
      <translation>时间：</translation>
    </message>
    <message>
      <source>Trotzdem zurueckschreiben?</source>
      <translation>仍要写回吗？</translation>
    </message>
    <message>
      <source>UMTS Einbauen</source>
      <translation>UMTS 设置</translation>
    </message>
    <message>
      <source>UMTS2/LTE Einbauen</source>
      <translation>UMTS2/LTE 设置</translation>
    </message>
    <message>
      <source>Uebergeben(&amp;T)</source>
      <translation>传输(&amp;T)</translation>
    </message>
    <message>
      <source>Ueberpruefen</source>
      <translation>检查</translation>
    </message>
    <message>
      <source>Uegerbegen Modell</source>
      <translation>传输模式</translation>
    </message>
    <message>
      <source>Under Limit Beep On/Off</source>
      <translation>低于限值提示音开/关</translation>
    </message>
    <message>
      <source>Unter</source>
      <translation>下扫</translation>
    </message>
    <message>
      <source>Unteres Ende der Pegelachse</source>
      <translation>电平轴下限</translation>
    </message>
    <message>
      <source>Update(&amp;U)</source>
      <translation>更新(&amp;U)</translation>
    </message>
    <message>
      <source>Upper power limit (dBm):</source>
      <translation>功率上限 (dBm)：</translation>
    </message>
    <message>
      <source>Urteil</source>
      <translation>判定</translation>
    </message>
    <message>
      <source>User Mode</source>
      <translation>用户模式</translation>
    </message>
    <message>
      <source>VISA Adresse:</source>
      <translation>VISA 地址:</translation>
    </message>
    <message>
      <source>Value:</source>
      <translation>值：</translation>
    </message>
    <message>
      <source>Verbindung verloren</source>
      <translation>连接已丢失</translation>
    </message>
    <message>
      <source>Verlauf</source>
      <translation>历史记录</translation>
    </message>
    <message>
      <source>Verlust in dB, -99.9 bis 9.9</source>
      <translation>损耗，单位 dB，-99.9 至 9.9</translation>
    </message>
    <message>
      <source>Video_Bandwidth:</source>
      <translation>视频带宽:</translation>
    </message>
    <message>
      <source>Vorhandene Dateien ersetzen? Anzahl:</source>
      <translation>替换已有文件？数量：</translation>
    </message>
    <message>
      <source>Werkzeug(&amp;W)</source>
      <translation>工具(&amp;T)</translation>
    </message>
    <message>
      <source>Wert, 0 bis 255</source>
      <translation>值，0 至 255</translation>
    </message>
    <message>
      <source>WiMax Setup</source>
      <translation>WiMax 设置</translation>
    </message>
    <message>
      <source>Wiederholung</source>
      <translation>重复方式</translation>
    </message>
    <message>
      <source>Wifi Einbauen</source>
      <translation>Wifi 设置</translation>
    </message>
    <message>
      <source>Write</source>
      <translation>写入</translation>
    </message>
    <message>
      <source>Wrong password.</source>
      <translation>密码错误。</translation>
    </message>
    <message>
      <source>Ziet: Sek.</source>
      <translation>时间：秒</translation>
    </message>
    <message>
      <source>Zuletzt gelesener Pegel</source>
      <translation>最近读取的电平</translation>
    </message>
    <message>
      <source>Zuletzt gemessen:</source>
      <translation>最近周期：</translation>
    </message>
    <message>
      <source>Zum Anfang der Liste</source>
      <translation>到列表开头</translation>
    </message>
    <message>
      <source>Zum Ende der Liste</source>
      <translation>到列表末尾</translation>
    </message>
    <message>
      <source>Zurueckgeschrieben und geprueft:</source>
      <translation>已写回并校验：</translation>
    </message>
    <message>
      <source>Zurueckschreiben?</source>
      <translation>写回吗？</translation>
    </message>
    <message>
      <source>Zustand des Geraets</source>
      <translation>仪器状态</translation>
    </message>
    <message>
      <source>Zwei Durchlaeufe ohne Pause, der erste mit ausgeschalteten Traegern</source>
      <translation>连续两次扫频，第一次关闭载波</translation>
    </message>
    <message>
      <source>Zyklen, 1 bis 100000</source>
      <translation>周期数，1 至 100000</translation>
    </message>
    <message>
      <source>Zyklen, deren Messung zu Ende ist</source>
      <translation>测量已结束的周期</translation>
    </message>
    <message>
      <source>antwortet nicht</source>
      <translation>无应答</translation>
    </message>
    <message>
      <source>bestanden</source>
      <translation>合格</translation>
    </message>
    <message>
      <source>braucht eine Zahl:</source>
      <translation>需要数字：</translation>
    </message>
    <message>
      <source>braucht eine ganze Zahl:</source>
      <translation>需要一个整数：</translation>
    </message>
    <message>
      <source>cannot be read.</source>
      <translation>无法读取。</translation>
    </message>
    <message>
      <source>contact was lost during the run; the partial curve is kept</source>
      <translation>测量期间失去连接；已保留部分曲线</translation>
    </message>
    <message>
      <source>dBm &lt;-&gt; mW &lt;-&gt; mV</source>
      <translation>dBm &lt;-&gt; mW &lt;-&gt; mV</translation>
    </message>
    <message>
      <source>dBm Einbauen</source>
      <translation>电平范围设置</translation>
    </message>
    <message>
      <source>f1The maximum value cannot be greater than 46dbm</source>
      <translation>f1：数值不得大于 46 dBm</translation>
    </message>
    <message>
      <source>f1The minimum value of not less than 0dbm</source>
      <translation>f1：数值不得小于 0 dBm</translation>
    </message>
    <message>
      <source>f2The maximum value cannot be greater than 46dbm</source>
      <translation>f2：数值不得大于 46 dBm</translation>
    </message>
    <message>
      <source>f2The minimum value of not less than 0dbm</source>
      <translation>f2：数值不得小于 0 dBm</translation>
    </message>
    <message>
      <source>failed to load config file!</source>
      <translation>加载配置失败！</translation>
    </message>
    <message>
      <source>failed to save config file!</source>
      <translation>保存配置失败！</translation>
    </message>
    <message>
      <source>falsch!!!</source>
      <translation>错误！</translation>
    </message>
    <message>
      <source>is a folder.</source>
      <translation>是文件夹。</translation>
    </message>
    <message>
      <source>is a store of the program.</source>
      <translation>是程序的存储文件。</translation>
    </message>
    <message>
      <source>ist keine Zahl. Bitte mit Dezimalpunkt eingeben.</source>
      <translation>不是数字，请使用小数点输入。</translation>
    </message>
    <message>
      <source>ist keine ganze Zahl von 0 bis 10000.</source>
      <translation>不是 0 到 10000 之间的整数。</translation>
    </message>
    <message>
      <source>kein Urteil</source>
      <translation>无判定</translation>
    </message>
    <message>
      <source>keine VISA-Bibliothek installiert</source>
      <translation>未安装 VISA 库</translation>
    </message>
    <message>
      <source>keine gueltige Adresse</source>
      <translation>地址无效</translation>
    </message>
    <message>
      <source>nicht bestanden</source>
      <translation>不合格</translation>
    </message>
    <message>
      <source>nicht erreichbar</source>
      <translation>无法连接</translation>
    </message>
    <message>
      <source>not a regular file</source>
      <translation>不是普通文件</translation>
    </message>
    <message>
      <source>not a saved configuration.</source>
      <translation>不是已保存的配置。</translation>
    </message>
    <message>
      <source>ok</source>
      <translation>确定</translation>
    </message>
    <message>
      <source>schlechtester Punkt:</source>
      <translation>最差点：</translation>
    </message>
    <message>
      <source>switch to lower screen setting (e.g. 256-color mode), and try again.</source>
      <translation>降低屏幕设置（例如256色模式）后重试。</translation>
    </message>
    <message>
      <source>the copy differs.</source>
      <translation>副本不一致。</translation>
    </message>
    <message>
      <source>the folder does not exist. Nothing was restored.</source>
      <translation>文件夹不存在，未恢复任何设置。</translation>
    </message>
    <message>
      <source>xls(Details Templates)</source>
      <translation>xls（明细模板）</translation>
    </message>
    <message>
      <source>xls(Sweep  Templates)</source>
      <translation>xls（扫描模板）</translation>
    </message>
    <message>
      <source>y_Scale (dB):</source>
      <translation>y 轴刻度 (dB):</translation>
    </message>
  </context>
</TS>
