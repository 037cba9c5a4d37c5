import assert from 'node:assert/strict'
import { beforeEach, it } from 'node:test'
import { until } from '../support/server.mjs'

const RUN = '执行'
const ALLOWED = '允许'
const DENIED = '禁止'
const EFFECTS = { [ALLOWED]: 'allowed', [DENIED]: 'denied', '': 'notSet' }
// An object of the menu on which no sample company gives rights to everyone: 历史数据.
const OBJECT = 31

export function rights(services) {
  const put = (holder, permission, object = OBJECT) =>
    services.data.sql(`insert into STPermission (UserID, ObjectID, Oprate, Permission) values (${holder}, ${object}, '${RUN}', ${permission})`)
  const clear = () => services.data.sql(`delete from STPermission where ObjectID = ${OBJECT}`)

  /** The right as the command line tells it. */
  const expectedRight = (login, objectID, operation) => {
    const holder = ['TTolPermission.SetUserID', String(services.oidOf(login))]
    return services.command('ask', ...holder, '+', 'TTolPermission.GetPermission', String(objectID), operation, '--user', login).answer
  }

  /** The right over HTTP, as soon as it shows what was written last. */
  const rightOf = async (login, effect, operation = RUN) => {
    let body
    const isShown = async () => {
      body = (await services.ask('getRight', { login, objectID: OBJECT, operation })).body
      return body.effect === effect
    }
    await until(isShown, `${login} has ${effect}`, services.data.tables.freshness)
    assert.equal(body.right, expectedRight(login, OBJECT, operation))
    assert.ok(body.reason.length > 0)
    return body
  }

  /** A role that `login` is in, besides that of everyone. */
  const roleOf = (login) => {
    const roles = `select R.OID, R.UserName from STUserGroup G join STUsers R on R.OID = G.GroupID where G.UserID = ${services.oidOf(login)}`
    const [oid, name] = services.data.sql(`${roles} order by R.OID desc limit 1`).split(/\||\t/)
    return { oid: Number(oid), name }
  }

  beforeEach(() => clear())

  it('that nobody set are not set', async () => {
    const { right, rows, superUser, reason } = await rightOf('linjuan', 'notSet')
    assert.deepEqual([right, rows, superUser, reason.length], ['', [], false, 1])
  })

  it('that a role denies are denied, whatever the user\'s own right is', async () => {
    const role = roleOf('linjuan')
    put(role.oid, 0)
    put(services.oidOf('linjuan'), 1)
    const { rows, reason } = await rightOf('linjuan', 'denied')
    const decides = rows.filter((row) => row.decides)
    assert.deepEqual(decides.map((row) => [row.holder.oid, row.holder.role, row.right, row.effect]), [[role.oid, true, DENIED, 'denied']])
    assert.deepEqual(rows.map((row) => row.effect).sort(), ['allowed', 'denied'])
    assert.ok(reason.join('\n').includes(role.name), reason.join('\n'))
  })

  it('of the user count before those that roles allow', async () => {
    put(roleOf('linjuan').oid, 1)
    put(services.oidOf('linjuan'), 0)
    const { rows } = await rightOf('linjuan', 'denied')
    const own = rows.find((row) => row.decides)
    assert.deepEqual([own.holder.login, own.holder.role, own.right], ['linjuan', false, DENIED])
    assert.equal(rows.length, 2)
  })

  it('of a super user are told with the word that he is one', async () => {
    put(services.oidOf('admin'), 0)
    const { superUser, rows, reason } = await rightOf('admin', 'allowed')
    assert.deepEqual([superUser, rows.length, rows[0].decides, reason.length], [true, 1, false, 2])
  })

  it('without a value count as denied', async () => {
    put(services.oidOf('linjuan'), 'null')
    const { rows } = await rightOf('linjuan', 'denied')
    assert.deepEqual(rows.map((row) => [row.right, row.effect, row.decides]), [['', 'notSet', true]])
  })

  it('of a disabled account are told with the word that it is disabled', async () => {
    put(services.oidOf(services.data.disabled), 1)
    assert.equal((await rightOf(services.data.disabled, 'allowed')).disabled, true)
  })

  it('are the same by number and by name, and those of the command line', async () => {
    const told = new Set()
    const questions = [['菜单', '供应商档案', RUN], ['菜单', '请假', RUN], ['单据', '采购申请单', '修改'], ['查询', '供应商清单', 'Excel导出'], ['单据', '采购申请单', '无此操作']]
    for (const [type, object, operation] of questions) {
      const objectID = services.command('ask', 'TRunPermission.GetObjID', type, object, '--user', 'admin').answer
      for (const login of ['linjuan', 'thomas.rossi', 'admin']) {
        const { body } = await services.ask('getRight', { login, type, object, operation })
        assert.deepEqual((await services.ask('getRight', { login, objectID, operation })).body, body)
        assert.deepEqual([body.login, body.objectID, body.operation], [login, objectID, operation])
        assert.equal(body.right, expectedRight(login, objectID, operation), `${login} ${object} ${operation}`)
        assert.equal(body.effect, EFFECTS[body.right])
        const deciding = body.rows.filter((row) => row.decides)
        assert.ok(deciding.every((row) => row.right === body.right), object)
        assert.equal(deciding.length > 0, body.right !== '' && !body.superUser, object)
        told.add(body.effect)
      }
    }
    assert.deepEqual([...told].sort(), ['allowed', 'denied', 'notSet'])
  })

  it('are explained in the language that is asked for', async () => {
    const given = { login: 'linjuan', objectID: OBJECT, operation: 'x' }
    const isChineseIn = async (language) => {
      const { body } = await services.ask('getRight', { ...given, ...(language === undefined ? {} : { 'Accept-Language': language }) })
      return /\p{Script=Han}/u.test(body.reason.join(' '))
    }
    for (const english of ['en', 'en-US,en;q=0.9,zh;q=0.8', 'EN-gb']) assert.equal(await isChineseIn(english), false, english)
    for (const chinese of [undefined, 'zh-CN', 'fr, en;q=0.5', '', 'e', ',', 'x'.repeat(1000)]) assert.equal(await isChineseIn(chinese), true, chinese)
  })

  it('that are denied are those of the command line', async () => {
    let denied = 0
    for (const login of ['linjuan', 'thomas.rossi'])
      for (const [type, object] of [['单据', '采购申请单'], ['查询', '供应商清单'], ['菜单', '供应商档案']]) {
        const expected = services.command('ask', 'TRunPermission.GetObjOperates', type, object, '--user', login).answer
        const { body } = await services.ask('listDenied', { login, type, object })
        assert.deepEqual([body.login, body.denied], [login, expected], object)
        assert.deepEqual((await services.ask('listDenied', { login, type, objectID: body.objectID })).body, body)
        denied += expected.length
      }
    assert.ok(denied >= 3, `${denied} operations denied`)
  })

  it('that change show in the next answer', async () => {
    await rightOf('linjuan', 'notSet')
    put(services.oidOf('linjuan'), 1)
    assert.equal((await rightOf('linjuan', 'allowed')).rows.length, 1)
    services.data.sql(`update STPermission set Permission = 0 where ObjectID = ${OBJECT}`)
    await rightOf('linjuan', 'denied')
    clear()
    await rightOf('linjuan', 'notSet')
  })

  it('decide what the menu shows', async () => {
    for (const login of ['linjuan', 'wuzhiqiang'])
      assert.deepEqual((await services.ask('listMenus', { login })).body, { login, menus: expectedMenus(services, login) })
  })

  it('that a user gets add to the menu that he sees', async () => {
    const seen = async () => JSON.stringify((await services.ask('listMenus', { login: 'linjuan' })).body).includes('供应商档案')
    assert.equal(await seen(), false)
    put(services.oidOf('linjuan'), 1, 12)
    await until(seen, 'the menu shows it', services.data.tables.freshness)
    services.data.sql(`delete from STPermission where UserID = ${services.oidOf('linjuan')} and ObjectID = 12`)
    await until(async () => !(await seen()), 'the menu hides it', services.data.tables.freshness)
  })
}

/** The menu of a login from the table and the answers of the command line. */
function expectedMenus(services, login) {
  const columns = 'NodeID, ParentID, ObjectID, NeedHide, NodeCaption'
  const text = services.data.sql(`select ${columns} from ${services.data.tables.system}Tree order by NodeLevel, ParentID, PrecedID`)
  const rows = text.split('\n').map((line) => {
    const [node, parent, objectID, hidden, caption] = line.split(/\||\t/)
    return { node: Number(node), parent: Number(parent), objectID: Number(objectID), hidden: hidden === '1', caption }
  })
  const isAllowed = ({ objectID }) =>
    services.command('ask', 'TRunPermission.GetMenuPermission', String(objectID), '--user', login).answer
  const below = (parent) => rows.filter((row) => row.parent === parent && !row.hidden).flatMap((row) => {
    const { node, objectID, caption } = row
    const isFolder = rows.some((other) => other.parent === node && !other.hidden)
    if (!isFolder) return isAllowed(row) ? [{ objectID, caption, ...(caption === '域管理' ? { function: caption } : {}) }] : []
    const children = below(node)
    return children.length ? [{ objectID, caption, children }] : []
  })
  return below(-1)
}
