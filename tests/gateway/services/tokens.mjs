import assert from 'node:assert/strict'
import { it } from 'node:test'
import { until } from '../support/server.mjs'

const CHALLENGE = 'Bearer realm="zanrole"'
const MENUS = ['listMenus', { login: 'linjuan' }]

let lastAddress = 0
/** An address that nobody has asked from: wrong tokens slow down where they come from. */
function elsewhere() {
  lastAddress += 1
  return `198.51.${Math.floor(lastAddress / 250)}.${1 + (lastAddress % 250)}`
}

export function tokens(services) {
  const refused = async (options, what) => {
    const reply = await services.ask(...MENUS, { from: elsewhere(), token: null, ...options })
    assert.equal(reply.status, 401, what)
    return reply
  }

  /** What every operation that needs a token answers to the request of its examples. */
  const statuses = async (options) => {
    const found = {}
    for (const operation of services.known.guarded()) {
      const { given, body } = services.known.exampleOf(operation)
      found[operation.id] = (await services.ask(operation.id, given, { body, ...options() })).status
    }
    return found
  }
  const everywhere = (status) => Object.fromEntries(services.known.guarded().map((one) => [one.id, status]))

  it('are asked for by every question', async () => {
    assert.equal(services.known.guarded().length, 7)
    assert.deepEqual(await statuses(() => ({})), everywhere(200))
    assert.deepEqual(await statuses(() => ({ token: null, from: elsewhere() })), everywhere(401))
    for (const id of ['getHealth', 'getDocument']) assert.equal((await services.ask(id, {}, { token: null, from: elsewhere() })).status, 200, id)
  })

  it('that are no tokens are refused', async () => {
    const [, id, secret] = services.all.split('_')
    const wrong = ['', 'x', 'zan_', 'zan__', `zan_${id}`, `zan_${id}_`, `zan_${id}_${secret}x`, `zan_${id}_${secret.slice(1)}`,
      `zan_${id}_${'A'.repeat(secret.length)}`, `zan_nobody_${secret}`, `ZAN_${id}_${secret}`, `zan_${secret}_${id}`, `${services.all} x`,
      `zan_${id}_${secret}_`, `zan_../${id}_${secret}`, 'x'.repeat(8000), `zan_${id}_${'\u00e9'.repeat(8)}`]
    for (const token of wrong) {
      const { headers, body } = await refused({ token }, token)
      assert.equal(headers['www-authenticate'].startsWith(CHALLENGE), true)
      assert.equal(body.detail, 'The token is not valid.', token)
    }
    const basic = `Basic ${Buffer.from(`x:${services.all}`).toString('base64')}`
    for (const authorization of [services.all, basic, `Token ${services.all}`, `Bearer${services.all}`]) await refused({ headers: { authorization } }, authorization)
  })

  it('stand behind the word Bearer, in capitals or not', async () => {
    for (const scheme of ['Bearer', 'bearer', 'BEARER']) {
      const headers = { authorization: `${scheme} ${services.all}` }
      assert.equal((await services.ask(...MENUS, { token: null, headers })).status, 200, scheme)
    }
  })

  it('are taken from the header Authorization alone', async () => {
    const elsewhereInTheHead = { cookie: `zanrole=${services.all}`, 'x-api-key': services.all, 'proxy-authorization': `Bearer ${services.all}` }
    for (const [name, value] of Object.entries(elsewhereInTheHead)) await refused({ headers: { [name]: value } }, name)
    for (const name of ['token', 'access_token', 'authorization'])
      await refused({ target: `/api/users/linjuan/menus?${name}=${services.all}` }, name)
  })

  it('tell no difference between a wrong secret and a wrong number', async () => {
    const [, id, secret] = services.all.split('_')
    const wrongSecret = await refused({ token: `zan_${id}_${'A'.repeat(secret.length)}` })
    const wrongNumber = await refused({ token: `zan_${'A'.repeat(id.length)}_${secret}` })
    assert.equal(wrongSecret.text, wrongNumber.text)
    assert.equal(wrongSecret.headers['www-authenticate'], wrongNumber.headers['www-authenticate'])
  })

  it('open nothing once they are revoked, while the server runs', async () => {
    const { id, token } = services.newToken()
    assert.equal((await services.ask(...MENUS, { token })).status, 200)
    services.revoke(id)
    assert.equal((await refused({ token })).body.detail, 'The token is not valid.')
    assert.equal((await services.ask(...MENUS)).status, 200, 'others go on')
  })

  it('open nothing once they have expired', async () => {
    const { id, token } = services.newToken()
    assert.equal((await services.ask(...MENUS, { token })).status, 200)
    services.editTokens((text) => text.replace(new RegExp(`("id":"${id}".*?"expires":")[^"]*`), '$12020-01-01T00:00:00Z'))
    const { body, headers } = await refused({ token })
    assert.equal(body.detail, 'The token has expired.')
    assert.ok(headers['www-authenticate'].startsWith(CHALLENGE))
    assert.equal((await refused({ token: `${token}x` })).body.detail, 'The token is not valid.', 'only who knows the secret hears so')
  })

  it('let nobody in while others could have written them', async () => {
    services.shareTokens(true)
    try {
      assert.deepEqual(await statuses(() => ({ from: elsewhere() })), everywhere(503))
    } finally {
      services.shareTokens(false)
    }
    assert.equal((await services.ask(...MENUS)).status, 200)
  })

  it('are known as soon as they are made', async () => {
    for (let i = 0; i < 5; i += 1) assert.equal((await services.ask(...MENUS, { token: services.token() })).status, 200)
  })

  it('open only the functions that they name', async () => {
    const token = services.token({ functions: 'GetCurUserType,GetCurDomainID' })
    const call = (name) => services.ask('callFunction', { name }, { token, body: { login: 'linjuan' } })
    assert.equal((await call('GetCurUserType')).status, 200)
    const { status, body } = await call('GetCurDomainName')
    assert.equal(status, 403)
    assert.match(body.detail, /function/)
    const { body: { functions } } = await services.ask('listFunctions', {}, { token })
    assert.deepEqual(functions.filter((one) => one.allowed).map((one) => one.name).sort(), ['GetCurDomainID', 'GetCurUserType'])
  })

  it('that name no function open none of their addresses', async () => {
    const token = services.token({ functions: '' })
    assert.equal((await services.ask('listFunctions', {}, { token })).status, 403)
    assert.equal((await services.ask('describeFunction', { name: 'GetCurUserType' }, { token })).status, 403)
    assert.equal((await services.ask('callFunction', { name: 'GetCurUserType' }, { token, body: { login: 'linjuan' } })).status, 403)
    assert.equal((await services.ask(...MENUS, { token })).status, 200)
  })

  it('open functions that paste texts only by name', async () => {
    const inputs = { 返回内容: 'Code', 查询条件: "Code = 'Y01'" }
    const named = await services.call('GetDomainInfo', inputs, 'linjuan')
    assert.deepEqual([named.status, named.body.out], [200, { Result: 'Y01' }])
    const byStar = await services.ask('callFunction', { name: 'GetDomainInfo' }, { body: { in: inputs, login: 'linjuan' } })
    assert.equal(byStar.status, 403)
    assert.match(byStar.body.detail, /function/)
  })

  it('open only the questions that they name', async () => {
    const questions = {
      menus: MENUS,
      denied: ['listDenied', { login: 'linjuan', type: '单据', objectID: 50 }],
      rights: ['getRight', { login: 'linjuan', objectID: 31, operation: 'x' }],
      holders: ['listHolders', { objectID: 31, operation: 'x' }],
    }
    for (const name of Object.keys(questions)) {
      const token = services.token({ questions: name })
      for (const [asked, question] of Object.entries(questions)) {
        const { status, body } = await services.ask(...question, { token })
        assert.equal(status, asked === name ? 200 : 403, `${asked} of ${name}`)
        if (asked !== name) assert.match(body.detail, new RegExp(asked))
      }
    }
  })

  it('open only the logins that they name also in the inputs that hold logins', async () => {
    const token = services.token({ logins: 'linjuan,matao' })
    const ask = (name, inputs) => services.ask('callFunction', { name }, { token, body: { login: 'linjuan', in: inputs } })
    assert.equal((await ask('RoleSuperiorEx', { 当前用户: 'matao' })).status, 200)
    assert.equal((await ask('RoleGetUserOIDS', { 用户号集: 'linjuan, matao' })).status, 200)
    for (const [name, inputs] of [
      ['RoleSuperiorEx', { 当前用户: 'admin' }],
      ['RoleDepartmentName', { 用户号: 'admin' }],
      ['RoleGetUserOIDS', { 用户号集: 'linjuan,admin' }],
      ['RoleGetUserOIDS', { 用户号集: "linjuan','admin" }],
    ])
      assert.equal((await ask(name, inputs)).status, 403, JSON.stringify(inputs))
  })

  it('open only the logins that they name, and tell nothing of others', async () => {
    const token = services.token({ logins: 'linjuan' })
    assert.equal((await services.ask(...MENUS, { token })).status, 200)
    const answers = []
    const questions = [['listMenus', {}], ['getRight', { objectID: 31, operation: 'x' }], ['listDenied', { type: '单据', objectID: 50 }]]
    for (const login of ['matao', 'nobody', 'admin', 'LINJUAN', 'linjuan ', "x' or '1'='1"]) {
      for (const [id, more] of questions) answers.push(await services.ask(id, { login, ...more }, { token }))
      answers.push(await services.ask('callFunction', { name: 'GetCurUserType' }, { token, body: { login } }))
    }
    for (const { status, body, text } of answers) {
      assert.equal(status, 403)
      assert.match(body.detail, /login/)
      assert.equal(text, answers[0].text)
    }
    assert.equal((await services.ask('listMenus', { login: 'nobody' })).status, 404, 'one for all logins may know')
  })

  it('that are wrong slow down where they come from, and nobody else', async () => {
    const from = elsewhere()
    let reply
    const isSlowed = async () => {
      reply = await services.ask(...MENUS, { token: 'zan_x_y', from })
      return reply.status === 429
    }
    await until(isSlowed, 'wrong tokens are slowed down')
    assert.ok(Number(reply.headers['retry-after']) >= 1)
    assert.equal((await services.ask(...MENUS, { from: elsewhere() })).status, 200)
  })

  it('that ask too often are slowed down by every question', async () => {
    for (const operation of services.known.guarded()) {
      const token = services.token({ perSecond: 1 })
      const { given, body } = services.known.exampleOf(operation)
      const replies = await Promise.all(Array.from({ length: 6 }, () => services.ask(operation.id, given, { body, token })))
      assert.ok(replies.some((reply) => reply.status === 429), operation.id)
    }
  })

  it('may ask only as often as they say, and again a little later', async () => {
    const token = services.token({ perSecond: 2 })
    const replies = await Promise.all(Array.from({ length: 12 }, () => services.ask(...MENUS, { token })))
    const slowed = replies.filter((reply) => reply.status === 429)
    assert.ok(slowed.length >= 5 && slowed.length < 12, `${slowed.length} of 12 were refused`)
    assert.equal((await services.ask(...MENUS)).status, 200, 'other tokens go on')
    await new Promise((next) => setTimeout(next, 1000 * Number(slowed[0].headers['retry-after']) + 50))
    assert.equal((await services.ask(...MENUS, { token })).status, 200)
  })
}
