// The consoles of the mock server: a menu, a tree of domains with its dialog, and one of every kind of component.

const TEXTS = {
  zh: { domains: '域管理', kinds: '组件示例', admin: '系统管理', menu: '菜单' },
  en: { domains: 'Domain management', kinds: 'Sample components', admin: 'Administration', menu: 'Menu' },
}

export function openMain(session) {
  const window = session.open('TMainForm', '组织权限管理')
  const text = key => TEXTS[session.language][key]
  let open = true
  const rows = () => [
    { id: 1, level: 0, node: open ? 'open' : 'closed', icon: 'folder', cells: [text('admin')] },
    ...(open ? [
      { id: 2, level: 1, node: 'leaf', icon: 'function', cells: [text('domains')] },
      { id: 3, level: 1, node: 'leaf', icon: 'function', cells: [text('kinds')] },
    ] : []),
  ]
  let selected = 1
  window.add('label', 'UserName', null, { text: '系统管理员' })
  window.add('tree', 'MenuTree', null, {
    caption: () => text('menu'),
    onCount: () => rows().length,
    onRow: index => ({ ...rows()[index], selected: rows()[index].id === selected }),
    onSelect: id => { selected = id },
    onToggle: () => { open = !open },
    onActivate: id => (id === 2 ? openDomains(session, text) : id === 3 ? openKinds(session, text) : undefined),
  })
  session.onLanguage = wanted => { session.language = wanted }
}

/** A tree that is flattened as the session does it. */
class Tree {
  constructor() {
    this.nodes = new Map()
    this.children = new Map([[0, []]])
    this.open = new Set()
    this.selected = 0
    this.lastId = 0
  }

  add(parent, fields) {
    const id = ++this.lastId
    this.nodes.set(id, { id, parent, ...fields })
    this.children.set(id, [])
    this.children.get(parent).push(id)
    this.flat = undefined
    return id
  }

  remove(id) {
    const { parent } = this.nodes.get(id)
    this.children.set(parent, this.children.get(parent).filter(child => child !== id))
    this.nodes.delete(id)
    this.selected = parent
    this.flat = undefined
  }

  move(id, parent) {
    for (let above = parent; above !== 0; above = this.nodes.get(above).parent) if (above === id) return
    const node = this.nodes.get(id)
    this.children.set(node.parent, this.children.get(node.parent).filter(child => child !== id))
    node.parent = parent
    this.children.get(parent).push(id)
    this.open.add(parent)
    this.flat = undefined
  }

  toggle(id) {
    if (this.open.has(id)) this.open.delete(id)
    else this.open.add(id)
    this.flat = undefined
  }

  rows() {
    if (this.flat) return this.flat
    const result = []
    const walk = (id, level) => {
      for (const child of this.children.get(id)) {
        result.push({ id: child, level })
        if (this.open.has(child)) walk(child, level + 1)
      }
    }
    walk(0, 0)
    this.flat = result
    return result
  }

  row(index) {
    const { id, level } = this.rows()[index]
    const node = this.nodes.get(id)
    const state = this.children.get(id).length === 0 ? 'leaf' : this.open.has(id) ? 'open' : 'closed'
    const text = node.code ? `${node.name} (${node.code})` : node.name
    return { id, level, node: state, icon: level === 0 ? 'root' : 'domain', cells: [text], selected: this.selected === id }
  }
}

function sampleTree() {
  const tree = new Tree()
  const root = tree.add(0, { name: '域', code: '' })
  tree.open.add(root)
  for (const [at, name] of ['华东总部', '华北分公司', '华南分公司', '研究院'].entries()) {
    const company = tree.add(root, { name, code: `0${at + 1}`, remark: '', limit: 50 })
    for (const [inner, unit] of ['人事部', '财务部', '市场部'].entries()) tree.add(company, { name: unit, code: `0${at + 1}0${inner + 1}`, remark: '', limit: 10 })
  }
  tree.selected = root
  return tree
}

function openDomains(session, text) {
  const existing = [...session.windows.values()].find(window => window.className === 'TFormDomains')
  if (existing) return existing.focus()
  const tree = sampleTree()
  const window = session.open('TFormDomains', text('domains'))
  const node = () => tree.nodes.get(tree.selected)
  const atDomain = () => Boolean(node()?.code)
  const path = id => { const at = tree.nodes.get(id); return !at || at.parent === 0 ? '\\' : `${path(at.parent).replace(/\\$/, '')}\\${at.name}` }
  const action = (name, caption, icon, onExecute, more = {}) => window.add('action', name, 'BarDomains', { caption, icon, onExecute, ...more })
  window.add('group', 'BarDomains', null, { role: 'bar', caption: '域' })
  action('ActRefresh', '刷新', 'refresh', () => undefined, { key: 'F5' })
  action('ActDomainNew', '新建', 'new', () => newDomain(session, window, tree), { separator: true, key: 'Ctrl+N', enabled: () => Boolean(node()) })
  action('ActDomainEdit', '修改', 'edit', () => editDomain(session, tree, path), { key: 'F2', enabled: atDomain })
  action('ActDomainDelete', '删除', 'delete', () => deleteDomain(session, tree), { key: 'Delete', enabled: atDomain })
  action('ActDomainMoveUp', '上移', 'up', () => undefined, { separator: true, enabled: false })
  action('ActDomainMoveDown', '下移', 'down', () => undefined, { enabled: atDomain })
  action('ActDomainRights', '权限', 'rights', () => undefined, { separator: true, enabled: atDomain })
  action('ActExit', '退出', 'exit', () => window.close(), { separator: true })
  window.add('label', 'LabelTitle', null, { text: () => path(tree.selected) })
  window.add('tree', 'DomainTree', null, {
    caption: '域',
    onCount: () => tree.rows().length,
    onRow: index => tree.row(index),
    onSelect: id => { tree.selected = id },
    drag: true,
    onToggle: id => tree.toggle(id),
    onDrop: (ids, onto) => ids.forEach(id => tree.move(id, onto)),
    onActivate: id => tree.toggle(id),
  })
  window.add('tabs', 'Tabs', null, { value: '' })
  window.add('tab', 'TabManagers', 'Tabs', { caption: '管理员 ', visible: atDomain })
  window.add('tab', 'TabSuperUsers', 'Tabs', { caption: '超级用户 ', visible: () => !atDomain() })
  addPeople(window, 'ListViewManagers', 'TabManagers', 3)
  addPeople(window, 'ListViewSuperUsers', 'TabSuperUsers', 2)
  window.add('group', 'Status', null, { role: 'status' })
  window.add('label', 'LabelCount', 'Status', { text: () => `共 ${tree.nodes.size - 1} 个域` })
}

function addPeople(window, name, container, count) {
  const people = Array.from({ length: count }, (_, at) => ({ id: at + 1, cells: [`user${at + 1}`, ['王芳', '李伟', '张敏'][at], '华东总部'] }))
  const list = window.add('list', name, container, {
    columns: [{ title: '用户名', width: 140 }, { title: '姓名', width: 120 }, { title: '所属域', width: 200 }],
    multi: true,
    sort: 0,
    descending: false,
    onCount: () => people.length,
    onRow: index => ({ ...people[index], icon: 'user', selected: list.onSelected === people[index].id }),
    onSelect: id => { list.onSelected = id },
    onSort: column => {
      list.descending = list.sort === column && !list.descending
      list.sort = column
      people.sort((a, b) => a.cells[column].localeCompare(b.cells[column], 'zh') * (list.descending ? -1 : 1))
    },
  })
}

/** The dialog of a domain; the fields when it ended with OK. */
async function domainDialog(session, title, under, fields) {
  const window = session.open('TFormDomainEdit', '域管理', { modal: true })
  window.add('group', 'GroupTitle', null, { role: 'column' })
  window.add('label', 'LabelTitle', 'GroupTitle', { text: title })
  window.add('label', 'LabelDomain', 'GroupTitle', { text: under })
  window.add('group', 'GroupFields', null, { role: 'fields' })
  const edit = (name, caption, value, more = {}) => window.add('edit', name, more.in ?? 'GroupFields', { caption, value, max: 80, ...more })
  edit('EditName', '名　　称：', fields.name)
  edit('EditCode', '编　　码：', fields.code)
  window.add('memo', 'EditRemark', 'GroupFields', { caption: '描　　述：', value: fields.remark })
  window.add('spin', 'EditUserLimit', 'GroupFields', { caption: '用户上限：', value: fields.limit, min: 0, max: 10000 })
  window.add('label', 'LabelUserLimit', 'GroupFields', { text: '0表示用户数没有限制!' })
  window.add('group', 'GroupRelateOrg', 'GroupFields', { role: 'row' })
  window.add('edit', 'EditRelateOrg', 'GroupRelateOrg', { caption: '关联组织：', value: '', readOnly: true })
  window.add('action', 'ActClearOrg', 'GroupRelateOrg', { caption: '清除' })
  window.add('group', 'GroupButtons', null, { role: 'buttons' })
  window.add('action', 'BitBtnOk', 'GroupButtons', { caption: '确定', default: true, onExecute: () => accept() })
  window.add('action', 'BitBtnCancel', 'GroupButtons', { caption: '取消', cancel: true, onExecute: () => window.close('Cancel') })
  const entered = () => ({ name: window.part('EditName').value.trim(), code: window.part('EditCode').value.trim(), remark: window.part('EditRemark').value, limit: window.part('EditUserLimit').value })
  async function accept() {
    const fault = entered().name === '' ? ['名称不允许为空！', 'EditName'] : entered().code === '' ? ['编码不允许为空！', 'EditCode'] : undefined
    if (!fault) return window.close('Ok')
    await session.message('error', '系统提示', fault[0], ['Ok'])
    window.focus(fault[1])
    session.flush()
  }
  return (await session.showModal(window)) === 'Ok' ? entered() : undefined
}

async function newDomain(session, window, tree) {
  const parent = tree.selected
  const fields = await domainDialog(session, '创建一个新的域。', '上级域：\\', { name: '', code: '', remark: '', limit: 0 })
  if (!fields) return
  tree.open.add(parent)
  tree.selected = tree.add(parent, fields)
  window.reveal('DomainTree', tree.rows().findIndex(row => row.id === tree.selected))
  session.flush()
}

async function editDomain(session, tree, path) {
  const node = tree.nodes.get(tree.selected)
  const fields = await domainDialog(session, '修改域的相关信息。', `域：${path(tree.selected)}`, node)
  if (fields) Object.assign(node, fields)
  session.flush()
}

async function deleteDomain(session, tree) {
  const node = tree.nodes.get(tree.selected)
  if (tree.children.get(node.id).length > 0)
    await session.message('warning', '系统提示', `域“${path(tree, node)}”不为空，无法删除! \r\n请先删除所有下级域及管理员、角色、用户。`, ['Ok'])
  else if ((await session.message('confirm', '系统提示', `确实要删除域“${path(tree, node)}”吗?`, ['Yes', 'No'])) === 'Yes') tree.remove(node.id)
  session.flush()
}

function path(tree, node) {
  return `\\${node.name}`
}

const MANY = 100000

function openKinds(session, text) {
  if ([...session.windows.values()].some(window => window.className === 'TFormKinds')) return
  const window = session.open('TFormKinds', text('kinds'))
  window.add('group', 'Bar', null, { role: 'bar', caption: '操作' })
  window.add('action', 'ActSlow', 'Bar', { caption: '慢操作', icon: 'refresh', onExecute: () => { session.delay = 1500; setTimeout(() => { session.delay = 0 }, 100) } })
  window.add('action', 'ActFile', 'Bar', { caption: '导出', icon: 'export', onExecute: () => session.send({ seq: ++session.seq, ack: session.ack, changes: [{ file: 'users.xml' }] }) })
  window.add('action', 'ActProgress', 'Bar', { caption: '进度', icon: 'settings', onExecute: () => showProgress(session) })
  window.add('action', 'ActImport', 'Bar', { caption: '导入', icon: 'import', onExecute: () => openFile(session, window) })
  window.add('edit', 'EditFind', 'Bar', { caption: '查找：', value: '', onExecute: () => window.focus('ListMany') })
  window.add('tabs', 'Pages', null, { value: 'TabMany' })
  addMany(window)
  addFields(window)
  addCells(window)
  addStrange(window)
  window.add('group', 'Status', null, { role: 'status' })
  window.add('label', 'LabelFind', 'Status', { text: () => `查找：${window.part('EditFind').value}` })
}

function addMany(window) {
  let focused = 1
  const chosen = new Set([1])
  window.add('tab', 'TabMany', 'Pages', { caption: '大列表' })
  window.add('list', 'ListMany', 'TabMany', {
    caption: '大列表',
    columns: [{ title: '编号', width: 100 }, { title: '名称', width: 200 }],
    multi: true,
    focused: () => focused,
    onCount: () => MANY,
    onRow: index => ({ id: index + 1, icon: 'user', cells: [String(index + 1), `用户 ${index + 1}`], selected: chosen.has(index + 1) }),
    onSelect: (id, mode) => {
      if (mode === 'set') chosen.clear()
      if (mode === 'range') for (let at = Math.min(id, focused); at <= Math.max(id, focused); at++) chosen.add(at)
      else if (mode === 'toggle' && chosen.has(id)) chosen.delete(id)
      else chosen.add(id)
      focused = id
    },
  })
}

function addFields(window) {
  window.add('tab', 'TabFields', 'Pages', { caption: '字段' })
  window.add('group', 'Fields', 'TabFields', { role: 'fields', caption: '所有字段' })
  window.add('edit', 'EditLine', 'Fields', { caption: '文本：', value: '一行', hint: '提示' })
  window.add('edit', 'EditPassword', 'Fields', { caption: '密码：', mode: 'password', value: 'secret' })
  window.add('edit', 'EditNumber', 'Fields', { caption: '数字：', mode: 'number', value: '7' })
  window.add('memo', 'Memo', 'Fields', { caption: '备注：', value: '' })
  window.add('check', 'Check', 'Fields', { caption: '启用', value: true })
  window.add('radio', 'Radio', 'Fields', { caption: '方式：', items: ['全部', '部分'], value: 0 })
  window.add('combo', 'Combo', 'Fields', { caption: '类型：', items: ['公司', '部门', '岗位'], value: 1 })
  window.add('spin', 'Spin', 'Fields', { caption: '数量：', value: 3, min: 0, max: 10 })
  window.add('progress', 'Progress', 'Fields', { caption: '进度', value: 30, max: 100 })
  window.add('picture', 'Picture', 'Fields', { caption: '图片', source: 'users' })
}

function addCells(window) {
  const rows = [['登录名', 'zhang'], ['性别', '男'], ['部门', '财务部']]
  let selected = 1
  window.add('tab', 'TabCells', 'Pages', { caption: '单元格' })
  window.add('grid', 'Cells', 'TabCells', {
    caption: '属性',
    columns: [{ title: '属性', width: 160 }, { title: '值', width: 240 }],
    onCount: () => rows.length,
    onRow: index => ({
      id: index + 1,
      cells: [rows[index][0], { text: rows[index][1], edit: true, pick: index === 1 ? ['男', '女'] : undefined, button: index === 2 }],
      selected: selected === index + 1,
    }),
    onSelect: id => { selected = id },
    onEdit: (id, column, value) => { rows[id - 1][column] = value },
    onExecute: (id, column) => { rows[id - 1][column] = '人事部' },
  })
}

function addStrange(window) {
  window.add('tab', 'TabStrange', 'Pages', { caption: '未知' })
  window.add('hologram', 'Strange', 'TabStrange', { caption: '全息' })
}

/** The upload answers the dialog, as the session does when the file has come. */
async function openFile(session, console) {
  const window = session.open('TOpenDialog', '打开', { modal: true })
  window.add('edit', 'FileName', null, { caption: '文件名：', value: '' })
  window.add('group', 'Buttons', null, { role: 'buttons' })
  window.add('action', 'Ok', 'Buttons', { caption: '确定', default: true, onExecute: () => window.close('Ok') })
  window.add('action', 'Cancel', 'Buttons', { caption: '取消', cancel: true, onExecute: () => window.close('Cancel') })
  const name = await session.showModal(window)
  console.part('EditFind').value = name
  session.flush()
}

function showProgress(session) {
  const window = session.open('TProgressFm', '正在处理', { modal: true })
  window.add('label', 'LabelText', null, { text: '正在导出用户…' })
  const bar = window.add('progress', 'Bar', null, { value: 0, max: 10 })
  const timer = setInterval(() => {
    bar.value++
    if (bar.value >= 10) { clearInterval(timer); window.close() }
    session.flush()
  }, 80)
}
