<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- The texts of the toolkit's own dialogs and menus in the Portuguese of Portugal: the toolkit ships none. -->
<TS version="2.1" language="pt_PT" sourcelanguage="en">
<context><name>QPlatformTheme</name>
<message><source>OK</source>
<translation>OK</translation></message>
<message><source>Save</source>
<translation>Salvar</translation></message>
<message><source>Save All</source>
<translation>Salvar tudo</translation></message>
<message><source>Open</source>
<translation>Abrir</translation></message>
<message><source>&amp;Yes</source>
<translation>&amp;Sim</translation></message>
<message><source>Yes to &amp;All</source>
<translation>Sim a &amp;tudo</translation></message>
<message><source>&amp;No</source>
<translation>&amp;Não</translation></message>
<message><source>N&amp;o to All</source>
<translation>Nã&amp;o a tudo</translation></message>
<message><source>Abort</source>
<translation>Abortar</translation></message>
<message><source>Retry</source>
<translation>Tentar novamente</translation></message>
<message><source>Ignore</source>
<translation>Ignorar</translation></message>
<message><source>Close</source>
<translation>Fechar</translation></message>
<message><source>Cancel</source>
<translation>Cancelar</translation></message>
<message><source>Discard</source>
<translation>Não salvar</translation></message>
<message><source>Help</source>
<translation>Ajuda</translation></message>
<message><source>Apply</source>
<translation>Aplicar</translation></message>
<message><source>Reset</source>
<translation>Repor</translation></message>
<message><source>Restore Defaults</source>
<translation>Repor predefinições</translation></message>
</context>
<context><name>QGnomeTheme</name>
<message><source>&amp;OK</source>
<translation>&amp;OK</translation></message>
<message><source>&amp;Save</source>
<translation>&amp;Salvar</translation></message>
<message><source>&amp;Cancel</source>
<translation>&amp;Cancelar</translation></message>
<message><source>&amp;Close</source>
<translation>&amp;Fechar</translation></message>
<message><source>Close without Saving</source>
<translation>Fechar sem salvar</translation></message>
</context>
<context><name>QDialogButtonBox</name>
<message><source>OK</source>
<translation>OK</translation></message>
</context>
<context><name>QMessageBox</name>
<message><source>OK</source>
<translation>OK</translation></message>
<message><source>Help</source>
<translation>Ajuda</translation></message>
<message><source>Show Details...</source>
<translation>Mostrar detalhes...</translation></message>
<message><source>Hide Details...</source>
<translation>Ocultar detalhes...</translation></message>
</context>
<context><name>QAccessibleActionInterface</name>
<message><source>Press</source>
<translation>Premir</translation></message>
<message><source>Triggers the action</source>
<translation>Executa a acção</translation></message>
<message><source>Toggle</source>
<translation>Alternar</translation></message>
<message><source>Toggles the state</source>
<translation>Alterna o estado</translation></message>
<message><source>ShowMenu</source>
<translation>Mostrar menu</translation></message>
<message><source>Shows the menu</source>
<translation>Mostra o menu</translation></message>
<message><source>SetFocus</source>
<translation>Focar</translation></message>
<message><source>Sets the focus</source>
<translation>Dá o foco</translation></message>
<message><source>Increase</source>
<translation>Aumentar</translation></message>
<message><source>Increase the value</source>
<translation>Aumenta o valor</translation></message>
<message><source>Decrease</source>
<translation>Diminuir</translation></message>
<message><source>Decrease the value</source>
<translation>Diminui o valor</translation></message>
</context>
<context><name>QMdiSubWindow</name>
<message><source>&amp;Restore</source>
<translation>&amp;Restaurar</translation></message>
<message><source>&amp;Move</source>
<translation>&amp;Mover</translation></message>
<message><source>&amp;Size</source>
<translation>&amp;Tamanho</translation></message>
<message><source>Mi&amp;nimize</source>
<translation>Mi&amp;nimizar</translation></message>
<message><source>Ma&amp;ximize</source>
<translation>Ma&amp;ximizar</translation></message>
<message><source>Stay on &amp;Top</source>
<translation>Sempre &amp;visível</translation></message>
<message><source>&amp;Close</source>
<translation>&amp;Fechar</translation></message>
<message><source>Help</source>
<translation>Ajuda</translation></message>
<message><source>Menu</source>
<translation>Menu</translation></message>
<message><source>Minimize</source>
<translation>Minimizar</translation></message>
<message><source>Maximize</source>
<translation>Maximizar</translation></message>
<message><source>Restore</source>
<translation>Restaurar</translation></message>
<message><source>Restore Down</source>
<translation>Restaurar tamanho</translation></message>
<message><source>Close</source>
<translation>Fechar</translation></message>
<message><source>Shade</source>
<translation>Enrolar</translation></message>
<message><source>Unshade</source>
<translation>Desenrolar</translation></message>
<message><source>%1 - [%2]</source>
<translation>%1 - [%2]</translation></message>
<message><source>- [%1]</source>
<translation>- [%1]</translation></message>
</context>
<context><name>QMdiArea</name>
<message><source>(Untitled)</source>
<translation>(Sem título)</translation></message>
</context>
<context><name>QLineEdit</name>
<message><source>&amp;Undo</source>
<translation>&amp;Desfazer</translation></message>
<message><source>&amp;Redo</source>
<translation>&amp;Refazer</translation></message>
<message><source>Cu&amp;t</source>
<translation>Cor&amp;tar</translation></message>
<message><source>&amp;Copy</source>
<translation>&amp;Copiar</translation></message>
<message><source>&amp;Paste</source>
<translation>C&amp;olar</translation></message>
<message><source>Delete</source>
<translation>Apagar</translation></message>
<message><source>Select All</source>
<translation>Seleccionar tudo</translation></message>
</context>
<context><name>QWidgetTextControl</name>
<message><source>&amp;Undo</source>
<translation>&amp;Desfazer</translation></message>
<message><source>&amp;Redo</source>
<translation>&amp;Refazer</translation></message>
<message><source>Cu&amp;t</source>
<translation>Cor&amp;tar</translation></message>
<message><source>&amp;Copy</source>
<translation>&amp;Copiar</translation></message>
<message><source>Copy &amp;Link Location</source>
<translation>Copiar a &amp;ligação</translation></message>
<message><source>&amp;Paste</source>
<translation>C&amp;olar</translation></message>
<message><source>Delete</source>
<translation>Apagar</translation></message>
<message><source>Select All</source>
<translation>Seleccionar tudo</translation></message>
</context>
<context><name>QScrollBar</name>
<message><source>Scroll here</source>
<translation>Deslocar para aqui</translation></message>
<message><source>Left edge</source>
<translation>Extremo esquerdo</translation></message>
<message><source>Top</source>
<translation>Início</translation></message>
<message><source>Right edge</source>
<translation>Extremo direito</translation></message>
<message><source>Bottom</source>
<translation>Fim</translation></message>
<message><source>Page left</source>
<translation>Página à esquerda</translation></message>
<message><source>Page up</source>
<translation>Página acima</translation></message>
<message><source>Page right</source>
<translation>Página à direita</translation></message>
<message><source>Page down</source>
<translation>Página abaixo</translation></message>
<message><source>Scroll left</source>
<translation>Deslocar para a esquerda</translation></message>
<message><source>Scroll up</source>
<translation>Deslocar para cima</translation></message>
<message><source>Scroll right</source>
<translation>Deslocar para a direita</translation></message>
<message><source>Scroll down</source>
<translation>Deslocar para baixo</translation></message>
</context>
<context><name>QAbstractSpinBox</name>
<message><source>&amp;Select All</source>
<translation>&amp;Seleccionar tudo</translation></message>
<message><source>&amp;Step up</source>
<translation>A&amp;umentar</translation></message>
<message><source>Step &amp;down</source>
<translation>&amp;Diminuir</translation></message>
</context>
<context><name>QTabBar</name>
<message><source>Scroll Left</source>
<translation>Deslocar para a esquerda</translation></message>
<message><source>Scroll Right</source>
<translation>Deslocar para a direita</translation></message>
<message><source>Close Tab</source>
<translation>Fechar separador</translation></message>
</context>
<context><name>CloseButton</name>
<message><source>Close Tab</source>
<translation>Fechar separador</translation></message>
</context>
<context><name>QComboBox</name>
<message><source>Open the combo box selection popup</source>
<translation>Abrir a lista de escolhas</translation></message>
<message><source>False</source>
<translation>Não</translation></message>
<message><source>True</source>
<translation>Sim</translation></message>
</context>
<context><name>QMenu</name>
<message><source>Close</source>
<translation>Fechar</translation></message>
<message><source>Open</source>
<translation>Abrir</translation></message>
<message><source>Execute</source>
<translation>Executar</translation></message>
</context>
<context><name>QGuiApplication</name>
<message><source>QT_LAYOUT_DIRECTION</source>
<translation>LTR</translation></message>
</context>
<context><name>QShortcut</name>
<message><source>Shift</source>
<translation>Shift</translation></message>
<message><source>Ctrl</source>
<translation>Ctrl</translation></message>
<message><source>Alt</source>
<translation>Alt</translation></message>
<message><source>Space</source>
<translation>Espaço</translation></message>
<message><source>Esc</source>
<translation>Esc</translation></message>
<message><source>Tab</source>
<translation>Tab</translation></message>
<message><source>Backtab</source>
<translation>Shift+Tab</translation></message>
<message><source>Backspace</source>
<translation>Retrocesso</translation></message>
<message><source>Return</source>
<translation>Return</translation></message>
<message><source>Enter</source>
<translation>Enter</translation></message>
<message><source>Ins</source>
<translation>Ins</translation></message>
<message><source>Del</source>
<translation>Del</translation></message>
<message><source>Pause</source>
<translation>Pausa</translation></message>
<message><source>Print</source>
<translation>PrtScr</translation></message>
<message><source>SysReq</source>
<translation>SysReq</translation></message>
<message><source>Home</source>
<translation>Home</translation></message>
<message><source>End</source>
<translation>End</translation></message>
<message><source>Left</source>
<translation>Esquerda</translation></message>
<message><source>Up</source>
<translation>Cima</translation></message>
<message><source>Right</source>
<translation>Direita</translation></message>
<message><source>Down</source>
<translation>Baixo</translation></message>
<message><source>PgUp</source>
<translation>PgUp</translation></message>
<message><source>PgDown</source>
<translation>PgDn</translation></message>
<message><source>CapsLock</source>
<translation>CapsLock</translation></message>
<message><source>NumLock</source>
<translation>NumLock</translation></message>
<message><source>ScrollLock</source>
<translation>ScrollLock</translation></message>
<message><source>Menu</source>
<translation>Menu</translation></message>
<message><source>Help</source>
<translation>Ajuda</translation></message>
<message><source>Meta</source>
<translation>Meta</translation></message>
<message><source>Num</source>
<translation>Num</translation></message>
<message><source>+</source>
<translation>+</translation></message>
<message><source>F%1</source>
<translation>F%1</translation></message>
</context>
<context><name>QFileDialog</name>
<message><source>Look in:</source>
<translation>Procurar em:</translation></message>
<message><source>Back</source>
<translation>Retroceder</translation></message>
<message><source>Go back</source>
<translation>Voltar à pasta anterior</translation></message>
<message><source>Forward</source>
<translation>Avançar</translation></message>
<message><source>Go forward</source>
<translation>Avançar para a pasta seguinte</translation></message>
<message><source>Parent Directory</source>
<translation>Pasta superior</translation></message>
<message><source>Go to the parent directory</source>
<translation>Ir para a pasta superior</translation></message>
<message><source>Create New Folder</source>
<translation>Criar pasta nova</translation></message>
<message><source>Create a New Folder</source>
<translation>Criar uma pasta nova</translation></message>
<message><source>List View</source>
<translation>Lista</translation></message>
<message><source>Change to list view mode</source>
<translation>Mostrar como lista</translation></message>
<message><source>Detail View</source>
<translation>Detalhes</translation></message>
<message><source>Change to detail view mode</source>
<translation>Mostrar com detalhes</translation></message>
<message><source>Sidebar</source>
<translation>Locais</translation></message>
<message><source>List of places and bookmarks</source>
<translation>Lista de locais e marcadores</translation></message>
<message><source>Files</source>
<translation>Ficheiros</translation></message>
<message><source>Files of type:</source>
<translation>Ficheiros do tipo:</translation></message>
<message><source>File &amp;name:</source>
<translation>&amp;Nome do ficheiro:</translation></message>
<message><source>Directory:</source>
<translation>Pasta:</translation></message>
<message><source>Directories</source>
<translation>Pastas</translation></message>
<message><source>&amp;Open</source>
<translation>&amp;Abrir</translation></message>
<message><source>&amp;Save</source>
<translation>&amp;Salvar</translation></message>
<message><source>&amp;Choose</source>
<translation>&amp;Escolher</translation></message>
<message><source>Open</source>
<translation>Abrir</translation></message>
<message><source>Save As</source>
<translation>Salvar como</translation></message>
<message><source>Find Directory</source>
<translation>Procurar pasta</translation></message>
<message><source>&amp;Rename</source>
<translation>&amp;Mudar o nome</translation></message>
<message><source>&amp;Delete</source>
<translation>A&amp;pagar</translation></message>
<message><source>Delete</source>
<translation>Apagar</translation></message>
<message><source>Show &amp;hidden files</source>
<translation>Mostrar ficheiros &amp;ocultos</translation></message>
<message><source>&amp;New Folder</source>
<translation>Pasta &amp;nova</translation></message>
<message><source>New Folder</source>
<translation>Pasta nova</translation></message>
<message><source>All Files (*)</source>
<translation>Todos os ficheiros (*)</translation></message>
<message><source>All files (*)</source>
<translation>Todos os ficheiros (*)</translation></message>
<message><source>Recent Places</source>
<translation>Locais recentes</translation></message>
<message><source>Remove</source>
<translation>Remover</translation></message>
<message><source>Show </source>
<translation>Mostrar </translation></message>
<message><source>Alt+Left</source>
<translation>Alt+Left</translation></message>
<message><source>Alt+Right</source>
<translation>Alt+Right</translation></message>
<message><source>Alt+Up</source>
<translation>Alt+Up</translation></message>
<message><source>%1 already exists.
Do you want to replace it?</source>
<translation>%1 já existe.
Pretende substituir o ficheiro?</translation></message>
<message><source>%1
Directory not found.
Please verify the correct directory name was given.</source>
<translation>%1
Pasta não encontrada.
Verifique se o nome da pasta está correcto.</translation></message>
<message><source>%1
File not found.
Please verify the correct file name was given.</source>
<translation>%1
Ficheiro não encontrado.
Verifique se o nome do ficheiro está correcto.</translation></message>
<message><source>'%1' is write protected.
Do you want to delete it anyway?</source>
<translation>'%1' está protegido contra escrita.
Pretende apagar mesmo assim?</translation></message>
<message><source>Are you sure you want to delete '%1'?</source>
<translation>Tem a certeza de que pretende apagar '%1'?</translation></message>
<message><source>Could not delete directory.</source>
<translation>Não foi possível apagar a pasta.</translation></message>
</context>
<context><name>QFileSystemModel</name>
<message><source>Name</source>
<translation>Nome</translation></message>
<message><source>Size</source>
<translation>Tamanho</translation></message>
<message><source>Kind</source>
<translation>Tipo</translation></message>
<message><source>Type</source>
<translation>Tipo</translation></message>
<message><source>Date Modified</source>
<translation>Data de modificação</translation></message>
<message><source>Computer</source>
<translation>Computador</translation></message>
</context>
<context><name>QAbstractFileIconProvider</name>
<message><source>Drive</source>
<translation>Disco</translation></message>
<message><source>File</source>
<translation>Ficheiro</translation></message>
<message><source>Folder</source>
<translation>Pasta</translation></message>
<message><source>Shortcut</source>
<translation>Atalho</translation></message>
<message><source>Unknown</source>
<translation>Desconhecido</translation></message>
</context>
<context><name>QColorDialog</name>
<message><source>Select Color</source>
<translation>Seleccionar cor</translation></message>
<message><source>&amp;Basic colors</source>
<translation>Cores &amp;básicas</translation></message>
<message><source>&amp;Custom colors</source>
<translation>Cores &amp;personalizadas</translation></message>
<message><source>&amp;Add to Custom Colors</source>
<translation>&amp;Adicionar às personalizadas</translation></message>
<message><source>&amp;Pick Screen Color</source>
<translation>&amp;Obter cor do ecrã</translation></message>
<message><source>Cursor at %1, %2
Press ESC to cancel</source>
<translation>Cursor em %1, %2
Esc para cancelar</translation></message>
<message><source>Hu&amp;e:</source>
<translation>&amp;Matiz:</translation></message>
<message><source>&amp;Sat:</source>
<translation>&amp;Sat.:</translation></message>
<message><source>&amp;Val:</source>
<translation>&amp;Brilho:</translation></message>
<message><source>&amp;Red:</source>
<translation>&amp;Vermelho:</translation></message>
<message><source>&amp;Green:</source>
<translation>V&amp;erde:</translation></message>
<message><source>Bl&amp;ue:</source>
<translation>A&amp;zul:</translation></message>
<message><source>A&amp;lpha channel:</source>
<translation>Canal a&amp;lfa:</translation></message>
<message><source>&amp;HTML:</source>
<translation>&amp;HTML:</translation></message>
</context>
<context><name>QFontDialog</name>
<message><source>Select Font</source>
<translation>Seleccionar tipo de letra</translation></message>
<message><source>&amp;Font</source>
<translation>&amp;Tipo de letra</translation></message>
<message><source>Font st&amp;yle</source>
<translation>&amp;Estilo</translation></message>
<message><source>&amp;Size</source>
<translation>&amp;Tamanho</translation></message>
<message><source>Effects</source>
<translation>Efeitos</translation></message>
<message><source>Stri&amp;keout</source>
<translation>&amp;Rasurado</translation></message>
<message><source>&amp;Underline</source>
<translation>&amp;Sublinhado</translation></message>
<message><source>Sample</source>
<translation>Amostra</translation></message>
<message><source>Wr&amp;iting System</source>
<translation>S&amp;istema de escrita</translation></message>
</context>
<context><name>QPrintDialog</name>
<message><source>Print</source>
<translation>Imprimir</translation></message>
<message><source>&amp;Print</source>
<translation>&amp;Imprimir</translation></message>
<message><source>&amp;Options &gt;&gt;</source>
<translation>&amp;Opções &gt;&gt;</translation></message>
<message><source>&amp;Options &lt;&lt;</source>
<translation>&amp;Opções &lt;&lt;</translation></message>
<message><source>Print to File (PDF)</source>
<translation>Imprimir para ficheiro (PDF)</translation></message>
<message><source>Print To File ...</source>
<translation>Imprimir para ficheiro...</translation></message>
<message><source>Local file</source>
<translation>Ficheiro local</translation></message>
<message><source>Write PDF file</source>
<translation>Escrever ficheiro PDF</translation></message>
<message><source>%1 is a directory.
Please choose a different file name.</source>
<translation>%1 é uma pasta.
Escolha outro nome de ficheiro.</translation></message>
<message><source>File %1 is not writable.
Please choose a different file name.</source>
<translation>Não é possível escrever no ficheiro %1.
Escolha outro nome de ficheiro.</translation></message>
<message><source>%1 already exists.
Do you want to overwrite it?</source>
<translation>%1 já existe.
Pretende substituir o ficheiro?</translation></message>
<message><source>Options 'Pages Per Sheet' and 'Page Set' cannot be used together.
Please turn one of those options off.</source>
<translation>As opções 'Páginas por folha' e 'Conjunto de páginas' não podem ser usadas em simultâneo.
Desligue uma delas.</translation></message>
<message><source>There are conflicts in some options. Please fix them.</source>
<translation>Há opções em conflito. Corrija-as.</translation></message>
<message><source>Invalid Pages Definition</source>
<translation>Páginas mal definidas</translation></message>
<message><source>%1 does not follow the correct syntax. Please use ',' to separate ranges and pages, '-' to define ranges and make sure ranges do not intersect with each other.</source>
<translation>%1 não está escrito correctamente. Use ',' para separar páginas e intervalos, '-' para definir intervalos, e não deixe que os intervalos se cruzem.</translation></message>
<message><source>Duplex Settings Conflicts</source>
<translation>Conflito na impressão dos dois lados</translation></message>
<message><source>There are conflicts in duplex settings. Do you want to fix them?</source>
<translation>Há conflitos na impressão dos dois lados. Pretende corrigi-los?</translation></message>
<message><source>All Pages</source>
<translation>Todas as páginas</translation></message>
<message><source>Odd Pages</source>
<translation>Páginas ímpares</translation></message>
<message><source>Even Pages</source>
<translation>Páginas pares</translation></message>
<message><source>Automatic</source>
<translation>Automático</translation></message>
</context>
<context><name>QPrintWidget</name>
<message><source>Form</source>
<translation>Impressão</translation></message>
<message><source>Printer</source>
<translation>Impressora</translation></message>
<message><source>&amp;Name:</source>
<translation>&amp;Nome:</translation></message>
<message><source>P&amp;roperties</source>
<translation>P&amp;ropriedades</translation></message>
<message><source>Location:</source>
<translation>Localização:</translation></message>
<message><source>Preview</source>
<translation>Pré-visualizar</translation></message>
<message><source>Type:</source>
<translation>Tipo:</translation></message>
<message><source>Output &amp;file:</source>
<translation>&amp;Ficheiro de saída:</translation></message>
<message><source>...</source>
<translation>...</translation></message>
</context>
<context><name>QPrintSettingsOutput</name>
<message><source>Form</source>
<translation>Definições</translation></message>
<message><source>Copies</source>
<translation>Cópias</translation></message>
<message><source>Print range</source>
<translation>Intervalo de impressão</translation></message>
<message><source>Print all</source>
<translation>Imprimir tudo</translation></message>
<message><source>Pages from</source>
<translation>Páginas de</translation></message>
<message><source>to</source>
<translation>a</translation></message>
<message><source>Pages</source>
<translation>Páginas</translation></message>
<message><source>Selection</source>
<translation>Selecção</translation></message>
<message><source>Current Page</source>
<translation>Página actual</translation></message>
<message><source>Page Set:</source>
<translation>Conjunto de páginas:</translation></message>
<message><source>Output Settings</source>
<translation>Definições de saída</translation></message>
<message><source>Copies:</source>
<translation>Cópias:</translation></message>
<message><source>Collate</source>
<translation>Agrupar</translation></message>
<message><source>Reverse</source>
<translation>Ordem inversa</translation></message>
<message><source>Options</source>
<translation>Opções</translation></message>
<message><source>Color Mode</source>
<translation>Modo de cor</translation></message>
<message><source>Color</source>
<translation>Cor</translation></message>
<message><source>Grayscale</source>
<translation>Tons de cinzento</translation></message>
<message><source>Double Sided Printing</source>
<translation>Impressão dos dois lados</translation></message>
<message><source>Off</source>
<translation>Desligada</translation></message>
<message><source>Long side binding</source>
<translation>Virar pelo lado maior</translation></message>
<message><source>Short side binding</source>
<translation>Virar pelo lado menor</translation></message>
<message><source>Specify pages or ranges separated by commas. Ranges are specified by two numbers separated by a hyphen. E.g: 3,5-7,9 prints pages 3, 5, 6, 7 and 9.</source>
<translation>Indique páginas ou intervalos separados por vírgulas. Um intervalo são dois números separados por um hífen. Ex.: 3,5-7,9 imprime as páginas 3, 5, 6, 7 e 9.</translation></message>
</context>
<context><name>QPrintPropertiesDialog</name>
<message><source>Printer Properties</source>
<translation>Propriedades da impressora</translation></message>
<message><source>Job Options</source>
<translation>Opções do trabalho</translation></message>
<message><source>Page Setup Conflicts</source>
<translation>Conflitos na configuração da página</translation></message>
<message><source>There are conflicts in page setup options. Do you want to fix them?</source>
<translation>Há conflitos nas opções da página. Pretende corrigi-los?</translation></message>
<message><source>Advanced Option Conflicts</source>
<translation>Conflitos nas opções avançadas</translation></message>
<message><source>There are conflicts in some advanced options. Do you want to fix them?</source>
<translation>Há conflitos em opções avançadas. Pretende corrigi-los?</translation></message>
</context>
<context><name>QPrintPropertiesWidget</name>
<message><source>Form</source>
<translation>Propriedades</translation></message>
<message><source>Page</source>
<translation>Página</translation></message>
<message><source>Advanced</source>
<translation>Avançado</translation></message>
</context>
<context><name>QPageSetupDialog</name>
<message><source>Page Setup</source>
<translation>Configurar página</translation></message>
</context>
<context><name>QPageSetupWidget</name>
<message><source>Form</source>
<translation>Página</translation></message>
<message><source>Paper</source>
<translation>Papel</translation></message>
<message><source>Page size:</source>
<translation>Tamanho da página:</translation></message>
<message><source>Width:</source>
<translation>Largura:</translation></message>
<message><source>Height:</source>
<translation>Altura:</translation></message>
<message><source>Paper source:</source>
<translation>Origem do papel:</translation></message>
<message><source>Orientation</source>
<translation>Orientação</translation></message>
<message><source>Portrait</source>
<translation>Vertical</translation></message>
<message><source>Landscape</source>
<translation>Horizontal</translation></message>
<message><source>Reverse landscape</source>
<translation>Horizontal invertida</translation></message>
<message><source>Reverse portrait</source>
<translation>Vertical invertida</translation></message>
<message><source>Margins</source>
<translation>Margens</translation></message>
<message><source>top margin</source>
<translation>margem superior</translation></message>
<message><source>left margin</source>
<translation>margem esquerda</translation></message>
<message><source>right margin</source>
<translation>margem direita</translation></message>
<message><source>bottom margin</source>
<translation>margem inferior</translation></message>
<message><source>Page Layout</source>
<translation>Disposição das páginas</translation></message>
<message><source>Page order:</source>
<translation>Ordem das páginas:</translation></message>
<message><source>Pages per sheet:</source>
<translation>Páginas por folha:</translation></message>
<message><source>Millimeters (mm)</source>
<translation>Milímetros (mm)</translation></message>
<message><source>Inches (in)</source>
<translation>Polegadas (in)</translation></message>
<message><source>Points (pt)</source>
<translation>Pontos (pt)</translation></message>
<message><source>Pica (P̸)</source>
<translation>Paicas (P̸)</translation></message>
<message><source>Didot (DD)</source>
<translation>Didot (DD)</translation></message>
<message><source>Cicero (CC)</source>
<translation>Cícero (CC)</translation></message>
<message><source>Custom</source>
<translation>Personalizado</translation></message>
<message><source>mm</source>
<translation>mm</translation></message>
<message><source>pt</source>
<translation>pt</translation></message>
<message><source>in</source>
<translation>in</translation></message>
<message><source>P̸</source>
<translation>P̸</translation></message>
<message><source>DD</source>
<translation>DD</translation></message>
<message><source>CC</source>
<translation>CC</translation></message>
</context>
<context><name>QCupsJobWidget</name>
<message><source>Job</source>
<translation>Trabalho</translation></message>
<message><source>Job Control</source>
<translation>Controlo do trabalho</translation></message>
<message><source>Scheduled printing:</source>
<translation>Impressão agendada:</translation></message>
<message><source>Billing information:</source>
<translation>Dados de facturação:</translation></message>
<message><source>Job priority:</source>
<translation>Prioridade do trabalho:</translation></message>
<message><source>Banner Pages</source>
<translation>Páginas de rosto</translation></message>
<message><source>End:</source>
<translation>Fim:</translation></message>
<message><source>Start:</source>
<translation>Início:</translation></message>
<message><source>Banner page at end</source>
<translation>Página de rosto no fim</translation></message>
<message><source>Banner page at start</source>
<translation>Página de rosto no início</translation></message>
<message><source>Print Immediately</source>
<translation>Imprimir de imediato</translation></message>
<message><source>Hold Indefinitely</source>
<translation>Reter indefinidamente</translation></message>
<message><source>Day (06:00 to 17:59)</source>
<translation>Dia (06:00 às 17:59)</translation></message>
<message><source>Night (18:00 to 05:59)</source>
<translation>Noite (18:00 às 05:59)</translation></message>
<message><source>Second Shift (16:00 to 23:59)</source>
<translation>Segundo turno (16:00 às 23:59)</translation></message>
<message><source>Third Shift (00:00 to 07:59)</source>
<translation>Terceiro turno (00:00 às 07:59)</translation></message>
<message><source>Weekend (Saturday to Sunday)</source>
<translation>Fim-de-semana (sábado e domingo)</translation></message>
<message><source>Specific Time</source>
<translation>Hora marcada</translation></message>
<message><source>None</source>
<translation>Nenhuma</translation></message>
<message><source>Standard</source>
<translation>Normal</translation></message>
<message><source>Unclassified</source>
<translation>Não classificado</translation></message>
<message><source>Confidential</source>
<translation>Confidencial</translation></message>
<message><source>Classified</source>
<translation>Classificado</translation></message>
<message><source>Secret</source>
<translation>Secreto</translation></message>
<message><source>Top Secret</source>
<translation>Muito secreto</translation></message>
</context>
<context><name>QPageSize</name>
<message><source>Custom</source>
<translation>Personalizado</translation></message>
<message><source>Letter / ANSI A</source>
<translation>Carta / ANSI A</translation></message>
<message><source>Letter Extra</source>
<translation>Carta extra</translation></message>
<message><source>Letter Plus</source>
<translation>Carta mais</translation></message>
<message><source>Letter Small</source>
<translation>Carta pequena</translation></message>
<message><source>Executive (7.5 x 10 in)</source>
<translation>Executivo (7,5 x 10 pol.)</translation></message>
<message><source>Executive (7.25 x 10.5 in)</source>
<translation>Executivo (7,25 x 10,5 pol.)</translation></message>
<message><source>Folio (8.27 x 13 in)</source>
<translation>Fólio (8,27 x 13 pol.)</translation></message>
<message><source>Legal Extra</source>
<translation>Legal extra</translation></message>
<message><source>Tabloid / ANSI B</source>
<translation>Tablóide / ANSI B</translation></message>
<message><source>Tabloid Extra</source>
<translation>Tablóide extra</translation></message>
<message><source>A3 Extra</source>
<translation>A3 extra</translation></message>
<message><source>A4 Extra</source>
<translation>A4 extra</translation></message>
<message><source>A4 Plus</source>
<translation>A4 mais</translation></message>
<message><source>A4 Small</source>
<translation>A4 pequeno</translation></message>
<message><source>A5 Extra</source>
<translation>A5 extra</translation></message>
<message><source>B5 Extra</source>
<translation>B5 extra</translation></message>
<message><source>Architect A</source>
<translation>Arquitecto A</translation></message>
<message><source>Architect B</source>
<translation>Arquitecto B</translation></message>
<message><source>Architect C</source>
<translation>Arquitecto C</translation></message>
<message><source>Architect D</source>
<translation>Arquitecto D</translation></message>
<message><source>Architect E</source>
<translation>Arquitecto E</translation></message>
<message><source>Note</source>
<translation>Nota</translation></message>
<message><source>Statement</source>
<translation>Extracto</translation></message>
<message><source>Postcard</source>
<translation>Postal</translation></message>
<message><source>Double Postcard</source>
<translation>Postal duplo</translation></message>
<message><source>Envelope Personal</source>
<translation>Envelope pessoal</translation></message>
<message><source>Envelope Invite</source>
<translation>Envelope de convite</translation></message>
<message><source>Envelope Italian</source>
<translation>Envelope italiano</translation></message>
</context>
</TS>
